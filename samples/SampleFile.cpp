#include "samples/SampleFile.h"

#include "samples/NoiseSamples.h"
#include "samples/OscilloscopeSamples.h"

namespace vireo {

std::vector<SampleFile> AllSamples()
{
    std::vector<SampleFile> files = OscilloscopeSamples();
    for (SampleFile& file : NoiseSamples())
        files.push_back(std::move(file));
    return files;
}

} // namespace vireo
