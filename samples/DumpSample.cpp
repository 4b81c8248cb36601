#include "samples/DumpSample.h"

#include "testfile/DumpWriter.h"
#include "testfile/PackedDump.h"

namespace vireo {

SampleFile DumpSample(const std::vector<SampleFile>& others)
{
    const std::string description = "Test run of Heron 36 Pro, H36-00417, before and after "
                                    "adjustment\n";
    std::vector<DumpEntry> entries{
        {std::string(PackedDump::kDescriptionMember), description.size()}};
    std::string data = description;
    for (const SampleFile& sample : others) {
        if (!sample.name.starts_with("oscilloscope-set/") && sample.name != "noise-gray.con")
            continue;
        entries.push_back({sample.name.substr(sample.name.rfind('/') + 1), sample.bytes.size()});
        data += sample.bytes;
    }
    // In a folder of its own: whoever opens it has its files beside it then.
    return {"dump/test-run.con", DumpHeader(entries) + data};
}

} // namespace vireo
