#pragma once

#include <optional>

namespace vireo {

/// The noise limit in percent of the test station: "NoiseLimit=" in the test program's settings
/// file "Fct_Tst6.ini", which lies in the program's folder or, on Windows, in the folder "Fct_Test"
/// of a local drive from C: to I:. Nothing when there is no such file or value.
std::optional<int> StationNoiseLimit();

} // namespace vireo
