#pragma once

#include "platform/FileAssociation.h"

#include <string_view>

namespace vireo {

/// Whether "Open .con files with Vireo" is ticked: the user has chosen it, also where the system
/// heeds another choice first.
bool IsAssociated(const FileAssociation& association);

/// Makes the choice, or takes it back when it is made; gives what the user has to be told, empty
/// when all is as asked for.
std::string_view ToggleAssociation(FileAssociation& association);

} // namespace vireo
