#include "app/AssociationCommand.h"

namespace vireo {

bool IsAssociated(const FileAssociation& association)
{
    return association.State() != AssociationState::Off;
}

std::string_view ToggleAssociation(FileAssociation& association)
{
    constexpr std::string_view kRefused =
        "The system does not let Vireo change which program opens .con files.";
    constexpr std::string_view kOverruled =
        "Another program has been chosen for .con files under \"Open with\", and that choice comes "
        "first.\n\nTo change it, right-click a .con file, choose \"Open with\", then \"Choose "
        "another app\", and select Vireo for always.";
    if (IsAssociated(association))
        return association.Undo() ? std::string_view() : kRefused;
    if (!association.Set())
        return kRefused;
    return association.State() == AssociationState::Overruled ? kOverruled : std::string_view();
}

} // namespace vireo
