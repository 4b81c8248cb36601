#pragma once

#include "testfile/TestFileHeader.h"

#include <optional>

namespace vireo {

/// The settings of the test station, "Fct_Tst6.ini" of the test program: its keys and values stand
/// there as in a test file's header. Nothing when there is no such file.
std::optional<TestFileHeader> LoadStationSettings();

} // namespace vireo
