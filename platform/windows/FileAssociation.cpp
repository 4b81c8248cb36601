#include "platform/FileAssociation.h"

#include "platform/Path.h"
#include "platform/Text.h"
#include "platform/windows/Registry.h"

#include <windows.h>

#include <utility>
// This needs windows.h before it.
#include <shlobj.h>

namespace vireo {

namespace {

using Names = AssociationSetup;

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
        if (!IsOurs() || ReadUserText(CommandKey(), "") != Command())
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
            && WriteUserText(m_class + "\\DefaultIcon", "", m_program + ",0")
            && WriteUserText(CommandKey(), "", Command())
            && WriteUserText(m_openWith, Names::kClass, "")
            && WriteUserText(m_extension, "", Names::kClass);
        TellShell();
        return isSet;
    }

    bool Undo() override
    {
        const bool isUndone = (!IsOurs() || RestoreBefore())
            && RemoveUserValue(m_openWith, Names::kClass) && RemoveEmptyUserKey(m_openWith)
            && RemoveEmptyUserKey(m_extension) && RemoveUserKeyWithAllBelow(m_class);
        TellShell();
        return isUndone;
    }

private:
    std::string CommandKey() const { return m_class + R"(\shell\open\command)"; }
    std::string Command() const { return '"' + m_program + R"(" "%1")"; }

    bool IsOurs() const { return EqualsIgnoringCase(ReadUserText(m_extension, ""), Names::kClass); }

    /// Notes what the extension has, unless that is our own class already.
    bool KeepBefore() const
    {
        if (IsOurs())
            return true;
        const auto before = ReadUserValue(m_extension, "");
        return before ? WriteUserValue(m_class, Names::kBefore, *before)
                      : RemoveUserValue(m_class, Names::kBefore);
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
