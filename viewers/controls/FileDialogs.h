#pragma once

#include "platform/PositionalFile.h"
#include "platform/WorkPaths.h"

#include <QString>

#include <filesystem>
#include <string_view>

class QWidget;

namespace vireo {

/// What a file dialog asks for.
struct FileQuestion {
    QString title;
    /// Qt's form: "Star test (*.txt);;All Files (*)".
    QString filter;
    /// Added to a name that is typed without an extension, with no '.' in front.
    QString defaultExtension = QStringLiteral("con");
    DialogPlace place = {};
};

// The open and save dialogs of every viewer. They begin in the folder of the file at hand; without
// one, where the user was last with this function key or where the test program saves its results.

/// Asks for an existing file; empty when cancelled. `current` is the file at hand, or empty.
std::filesystem::path AskForFileToOpen(
    QWidget* parent, const FileQuestion& question, const std::filesystem::path& current);

/// Asks under which name to save, beginning with `proposed` (a bare name begins in the folder of
/// the place). Replacing an existing file is asked for, of the name with its extension. Empty when
/// cancelled.
std::filesystem::path AskForFileToSave(
    QWidget* parent, const FileQuestion& question, const std::filesystem::path& proposed);

// Messages about a file, which name it and say what failed and why. A reason is a sentence without
// its full stop, in UTF-8.

/// Nothing of the file can be shown.
void TellCannotOpen(const std::filesystem::path& file, std::string_view reason);
/// The file was not written; says nothing when the status is Ok.
void TellCannotSave(const std::filesystem::path& file, FileStatus status);
/// Something is wrong with a file that is on view.
void TellFileFault(const std::filesystem::path& file, std::string_view reason);

} // namespace vireo
