#pragma once

#include "samples/SampleFile.h"

#include <vector>

namespace vireo {

/// A packed dump of a small test run: a description, the oscilloscope files of "oscilloscope-set"
/// and a noise file, taken from the other samples.
SampleFile DumpSample(const std::vector<SampleFile>& others);

} // namespace vireo
