#include "samples/SampleFile.h"

#include "samples/AdjustmentSamples.h"
#include "samples/DumpSample.h"
#include "samples/LightProfileSamples.h"
#include "samples/NoiseSamples.h"
#include "samples/OscilloscopeSamples.h"
#include "samples/StarTestSamples.h"
#include "samples/StitchSamples.h"
#include "samples/TiffSamples.h"
#include "samples/TonalSamples.h"

namespace vireo {

std::vector<SampleFile> AllSamples()
{
    std::vector<SampleFile> files = OscilloscopeSamples();
    for (SampleFile& file : NoiseSamples())
        files.push_back(std::move(file));
    for (SampleFile& file : StitchSamples())
        files.push_back(std::move(file));
    for (SampleFile& file : StarTestSamples())
        files.push_back(std::move(file));
    for (SampleFile& file : TonalSamples())
        files.push_back(std::move(file));
    files.push_back(DumpSample(files));
    for (SampleFile& file : LightProfileSamples())
        files.push_back(std::move(file));
    for (SampleFile& file : AdjustmentSamples())
        files.push_back(std::move(file));
    for (SampleFile& file : TiffSamples())
        files.push_back(std::move(file));
    return files;
}

} // namespace vireo
