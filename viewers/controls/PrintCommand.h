#pragma once

#include <functional>

class QPainter;
class QPrinter;
class QRectF;
class QWidget;

namespace vireo {

/// The name under which a plot's document stands in the printer's queue.
inline constexpr const char* kPrintDocumentName = "Printing Tqx Test Document";

/// Shows the print dialog for one page in one copy; returns whether the user wants to print.
/// Collation and copies are the driver's. Says so where there is no printer to choose.
bool AskForPrinter(QPrinter& printer, QWidget* parent);

/// Prints one page as a document of its own: `draw` gets the printable rectangle in the printer's
/// pixels. False when the printer cannot take it.
bool PrintOnePage(QPrinter& printer, const char* documentName,
    const std::function<void(QPainter& painter, const QRectF& page)>& draw);

/// Shows the preview window, which prints through `print`.
void ShowPrintPreview(
    QPrinter& printer, QWidget* parent, const std::function<void(QPrinter&)>& print);

/// "Unable to print section".
void ShowPrintFailure();

} // namespace vireo
