#pragma once

#include <QIcon>
#include <QKeySequence>
#include <QString>

#include <optional>
#include <vector>

namespace vireo {

/// The program's icon in all its sizes, from 16 to 256 pixels.
QIcon ApplicationIcon();

/// One line of an accelerator table: keys that give a command.
struct Accelerator {
    QKeySequence keys;
    int command = 0;
};

/// Reads the lines of an accelerator table: keys and a command number with blanks between; empty
/// lines and those that begin with '#' count for nothing, and so do lines that cannot be read.
std::vector<Accelerator> ParseAccelerators(const QString& text);

/// An accelerator table of the program, such as "IDR_ACCELERATOR_VIREO"; nothing when there is no
/// table of that name. (The system's own name for this is a macro on Windows.)
std::optional<std::vector<Accelerator>> LoadAcceleratorResource(const QString& name);

} // namespace vireo
