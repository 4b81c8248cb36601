#include "viewers/controls/FileDialogs.h"

#include "platform/KnownFolders.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "viewers/controls/QtText.h"

#include <QFileDialog>

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

std::filesystem::path Ask(QFileDialog& dialog, const FileQuestion& question)
{
    dialog.setNameFilters(question.filter.split(QStringLiteral(";;")));
    dialog.setDefaultSuffix(question.defaultExtension);
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
    return Ask(dialog, question);
}

std::filesystem::path AskForFileToSave(
    QWidget* parent, const FileQuestion& question, const std::filesystem::path& proposed)
{
    QFileDialog dialog(parent, question.title, QStringFromPath(StartFolder(question, proposed)));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectFile(QStringFromPath(proposed.filename()));
    return Ask(dialog, question);
}

void TellFileFailure(const std::filesystem::path& file, std::string_view reason)
{
    ShowMessageInUtf8(ShownPath(file) + '\n' + Utf8FromWindows1252(reason));
}

void TellFileFailure(const std::filesystem::path& file, FileStatus status)
{
    if (status != FileStatus::Ok)
        TellFileFailure(file, Describe(status));
}

} // namespace vireo
