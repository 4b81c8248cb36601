#pragma once

#include "platform/KnownFolders.h"

#include <filesystem>
#include <memory>
#include <string>

namespace vireo {

/// What a double click on a ".con" file does for the user who runs the program.
enum class AssociationState {
    Off,      ///< It does not start this program.
    On,       ///< It opens the file with this program.
    Overruled ///< It would, but the user has chosen another program in the system's own dialog.
};

/// The choice "open .con files with Vireo" of one user, undone the same way.
class FileAssociation {
public:
    virtual ~FileAssociation() = default;

    virtual AssociationState State() const = 0;
    /// Makes the choice; doing so twice changes nothing. False: the system refuses.
    virtual bool Set() = 0;
    /// Takes the choice back: what was there before is there again, and nothing is left behind.
    virtual bool Undo() = 0;
};

/// Whom the choice is for, and where it is kept.
///
/// Windows: below HKEY_CURRENT_USER, all of type REG_SZ. The installer writes the same, and its
/// uninstaller takes the same away; neither needs an administrator.
///
///     key (below Software\Classes)    value        data
///     Vireo.con                       (default)    Scanner test result
///     Vireo.con                       Before       what .con had; missing where it had nothing
///     Vireo.con                       BeforeCopy   D:\...\vireo.exe, the copy before
///     Vireo.con\DefaultIcon           (default)    C:\...\vireo.exe,0
///     Vireo.con\shell\open\command    (default)    "C:\...\vireo.exe" "%1"
///     .con\OpenWithProgids            Vireo.con    (empty)
///     .con                            (default)    Vireo.con
///
/// BeforeCopy is there where .con was taken from another copy of the program. To undo it: while
/// that copy exists, the entries below Vireo.con name it again, and BeforeCopy goes. Else, where
/// .con still names Vireo.con it gets back "Before", with its type, or loses its value; "Vireo.con"
/// leaves OpenWithProgids; .con\OpenWithProgids and .con go where they are empty then; Vireo.con
/// goes with all below it. Both ends tell the shell (SHCNE_ASSOCCHANGED).
struct AssociationSetup {
    std::filesystem::path program = ProgramPath();
    /// Where classes of files are registered.
    std::string classesKey = R"(Software\Classes)";
    /// Where the system keeps what the user chose in its own dialog; programs cannot change it.
    std::string userChoiceKey =
        R"(Software\Microsoft\Windows\CurrentVersion\Explorer\FileExts\.con\UserChoice)";

    static constexpr const char* kExtension = ".con";
    static constexpr const char* kClass = "Vireo.con";
    static constexpr const char* kClassTitle = "Scanner test result";
    static constexpr const char* kBefore = "Before";
    static constexpr const char* kBeforeCopy = "BeforeCopy";
};

/// The choice of the user who runs the program; null where it is not a program's to make. On Linux
/// it is not: the package brings the MIME types, with which a double click opens Vireo at once, and
/// every desktop has its own dialog for taking another program. A program that has only been
/// unpacked would have to install its types and icons for the user first.
std::shared_ptr<FileAssociation> UserFileAssociation(const AssociationSetup& setup = {});

} // namespace vireo
