#include "viewers/controls/FileDialogs.h"

#include "platform/KnownFolders.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "viewers/controls/QtText.h"

#include <QFileDialog>

#include <string>

namespace vireo {

namespace {

std::filesystem::path KeptFolders()
{
    return ConfigFolder() / "Vireo.ini";
}

std::filesystem::path StartFolder(const FileQuestion& question, const std::filesystem::path& file)
{
    return file.has_parent_path()
        ? file.parent_path()
        : FolderForDialog(SystemSettingsFolders(), KeptFolders(), question.place);
}

/// Before a name is proposed: a filter that is chosen afterwards would give it its own extension.
void Prepare(QFileDialog& dialog, const FileQuestion& question)
{
    dialog.setNameFilters(question.filter.split(QStringLiteral(";;")));
    dialog.setDefaultSuffix(question.defaultExtension);
}

std::filesystem::path Ask(QFileDialog& dialog, const FileQuestion& question)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    std::filesystem::path chosen = PathFromQString(dialog.selectedFiles().front());
    KeepFolderOfDialog(KeptFolders(), question.place, chosen);
    return chosen;
}

} // namespace

std::filesystem::path AskForFileToOpen(
    QWidget* parent, const FileQuestion& question, const std::filesystem::path& current)
{
    QFileDialog dialog(parent, question.title, QStringFromPath(StartFolder(question, current)));
    dialog.setFileMode(QFileDialog::ExistingFile);
    Prepare(dialog, question);
    return Ask(dialog, question);
}

std::filesystem::path AskForFileToSave(
    QWidget* parent, const FileQuestion& question, const std::filesystem::path& proposed)
{
    QFileDialog dialog(parent, question.title, QStringFromPath(StartFolder(question, proposed)));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    Prepare(dialog, question);
    dialog.selectFile(QStringFromPath(proposed.filename()));
    return Ask(dialog, question);
}

namespace {

void Tell(std::string_view what, const std::filesystem::path& file, std::string_view reason)
{
    std::string text(what);
    text.append(ShownPath(file)).append("\n\n").append(reason);
    if (!text.ends_with('.'))
        text += '.';
    ShowMessageInUtf8(text);
}

} // namespace

void TellCannotOpen(const std::filesystem::path& file, std::string_view reason)
{
    Tell("Vireo cannot open this file:\n", file, reason);
}

void TellCannotSave(const std::filesystem::path& file, FileStatus status)
{
    if (status != FileStatus::Ok)
        Tell("Vireo cannot save this file:\n", file, Describe(status));
}

void TellFileFault(const std::filesystem::path& file, std::string_view reason)
{
    Tell({}, file, reason);
}

} // namespace vireo
