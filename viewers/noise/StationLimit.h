#pragma once

#include <optional>

namespace vireo {

/// The noise limit in percent of the test station: "NoiseLimit=" in the test program's settings
/// file "Fct_Tst6.ini", which is looked for as every settings file is. Nothing when there is no
/// such file or value.
std::optional<int> StationNoiseLimit();

} // namespace vireo
