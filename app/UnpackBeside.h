#pragma once

#include <filesystem>

class QWidget;

namespace vireo {

/// Unpacks a packed dump into the folder that holds it, which becomes the work path. A dialog shows
/// how far it is, and can stop it, where it takes long; one message tells what could not be
/// unpacked. False when there is nothing new to show: nothing was unpacked, or the user has
/// cancelled it.
bool UnpackBeside(const std::filesystem::path& dump, QWidget* parent);

} // namespace vireo
