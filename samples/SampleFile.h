#pragma once

#include <string>
#include <vector>

namespace vireo {

/// A sample to be written: its name below the sample folder, with '/', and its bytes.
struct SampleFile {
    std::string name;
    std::string bytes;
};

/// Every sample of this folder, always with the same bytes.
std::vector<SampleFile> AllSamples();

} // namespace vireo
