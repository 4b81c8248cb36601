#include "platform/FileAssociation.h"

#include "platform/Path.h"
#include "platform/Text.h"
#include "platform/windows/Registry.h"

#include <windows.h>

#include <string_view>
#include <system_error>
#include <utility>
// This needs windows.h before it.
#include <shlobj.h>

namespace vireo {

namespace {

using Names = AssociationSetup;

/// Behind the program in the entry of an icon.
constexpr std::string_view kFirstIcon = ",0";

class RegistryAssociation : public FileAssociation {
public:
    explicit RegistryAssociation(AssociationSetup setup)
        : m_setup(std::move(setup)),
          m_class(m_setup.classesKey + '\\' + Names::kClass),
          m_extension(m_setup.classesKey + '\\' + Names::kExtension),
          m_openWith(m_extension + "\\OpenWithProgids"),
          m_program(Utf8FromPath(std::filesystem::path(m_setup.program).make_preferred()))
    {
    }

    AssociationState State() const override
    {
        if (!IsOurs() || ReadUserText(CommandKey(), "") != Command(m_program))
            return AssociationState::Off;
        const std::string chosen = ReadUserText(m_setup.userChoiceKey, "ProgId");
        return chosen.empty() || EqualsIgnoringCase(chosen, Names::kClass)
            ? AssociationState::On
            : AssociationState::Overruled;
    }

    bool Set() override
    {
        // The extension comes last: it never names a class that is not there.
        const bool isSet = KeepBefore() && WriteUserText(m_class, "", Names::kClassTitle)
            && OpenWith(m_program) && WriteUserText(m_openWith, Names::kClass, "")
            && WriteUserText(m_extension, "", Names::kClass);
        TellShell();
        return isSet;
    }

    bool Undo() override
    {
        const bool isUndone = GiveBackToCopy() || UndoAll();
        TellShell();
        return isUndone;
    }

private:
    std::string IconKey() const { return m_class + "\\DefaultIcon"; }
    std::string CommandKey() const { return m_class + R"(\shell\open\command)"; }
    static std::string Command(const std::string& program) { return '"' + program + R"(" "%1")"; }

    bool OpenWith(const std::string& program) const
    {
        return WriteUserText(IconKey(), "", program + std::string(kFirstIcon))
            && WriteUserText(CommandKey(), "", Command(program));
    }

    /// The program that opens the files now, as the icon's entry names it.
    std::string CurrentProgram() const
    {
        std::string icon = ReadUserText(IconKey(), "");
        if (icon.ends_with(kFirstIcon))
            icon.resize(icon.size() - kFirstIcon.size());
        return icon;
    }

    /// Another copy had the files and is still there.
    bool GiveBackToCopy() const
    {
        const std::string copy = ReadUserText(m_class, Names::kBeforeCopy);
        std::error_code error;
        return IsOurs() && !copy.empty() && std::filesystem::exists(PathFromUtf8(copy), error)
            && OpenWith(copy) && RemoveUserValue(m_class, Names::kBeforeCopy);
    }

    bool UndoAll() const
    {
        return (!IsOurs() || RestoreBefore()) && RemoveUserValue(m_openWith, Names::kClass)
            && RemoveEmptyUserKey(m_openWith) && RemoveEmptyUserKey(m_extension)
            && RemoveUserKeyWithAllBelow(m_class);
    }

    bool IsOurs() const { return EqualsIgnoringCase(ReadUserText(m_extension, ""), Names::kClass); }

    /// Notes what the extension has; where that is our own class, whose it is.
    bool KeepBefore() const
    {
        if (IsOurs())
            return KeepCopy();
        const auto before = ReadUserValue(m_extension, "");
        return RemoveUserValue(m_class, Names::kBeforeCopy)
            && (before ? WriteUserValue(m_class, Names::kBefore, *before)
                       : RemoveUserValue(m_class, Names::kBefore));
    }

    /// A copy that takes back what another one took from it has nobody before it.
    bool KeepCopy() const
    {
        const std::string current = CurrentProgram();
        if (current == m_program)
            return true;
        const bool isTakenBack = ReadUserText(m_class, Names::kBeforeCopy) == m_program;
        return current.empty() || isTakenBack ? RemoveUserValue(m_class, Names::kBeforeCopy)
                                              : WriteUserText(m_class, Names::kBeforeCopy, current);
    }

    bool RestoreBefore() const
    {
        const auto before = ReadUserValue(m_class, Names::kBefore);
        return before ? WriteUserValue(m_extension, "", *before) : RemoveUserValue(m_extension, "");
    }

    static void TellShell() { SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr); }

    AssociationSetup m_setup;
    std::string m_class;
    std::string m_extension;
    std::string m_openWith;
    std::string m_program;
};

} // namespace

std::shared_ptr<FileAssociation> UserFileAssociation(const AssociationSetup& setup)
{
    return std::make_shared<RegistryAssociation>(setup);
}

} // namespace vireo
