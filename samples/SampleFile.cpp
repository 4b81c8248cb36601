#include "samples/SampleFile.h"

#include "samples/OscilloscopeSamples.h"

namespace vireo {

std::vector<SampleFile> AllSamples()
{
    return OscilloscopeSamples();
}

} // namespace vireo
