#pragma once

#include <functional>

class QPrinter;
class QWidget;

namespace vireo {

/// The name under which a plot's document stands in the printer's queue.
inline constexpr const char* kPrintDocumentName = "Printing Tqx Test Document";

/// Shows the print dialog for one page in one copy; returns whether the user wants to print.
/// Collation and copies are the driver's.
bool AskForPrinter(QPrinter& printer, QWidget* parent);

/// Shows the preview window, which prints through `print`.
void ShowPrintPreview(
    QPrinter& printer, QWidget* parent, const std::function<void(QPrinter&)>& print);

/// "Unable to print section".
void ShowPrintFailure();

} // namespace vireo
