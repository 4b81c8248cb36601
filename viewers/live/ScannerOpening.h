#pragma once

#include "scanner/LineAcquisition.h"

#include <filesystem>
#include <optional>

class QWidget;

namespace vireo {

/// Opens the scanner that the settings choose, for a live test. A failure is reported, and the user
/// is asked whether to try again, to use the simulated scanner from now on, or to leave it. Nothing
/// when the user leaves it.
std::optional<OpenScanner> OpenChosenScanner(
    const std::filesystem::path& settings, QWidget* parent);

} // namespace vireo
