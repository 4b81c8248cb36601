#include "fuzz/FuzzInput.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

namespace vireo {

namespace {

void ReadLines(const OscilloscopeData& data)
{
    ProfileLine profile;
    for (const std::int64_t line : {std::int64_t{0}, data.LineCount() - 1, data.LineCount()}) {
        Require(data.PixelsOfLine(line) >= 0);
        Require(data.PixelsOfLine(line) <= data.DataLength());
        if (data.ReadLine(line, profile))
            Require(profile.Length() >= data.PixelsOfLine(line));
        const auto statistics = data.ComputeStatistics(line);
        for (const auto& plane : statistics) {
            if (plane)
                Require(plane->line.min <= plane->line.mean && plane->line.mean <= plane->line.max);
        }
    }
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    OscilloscopeData data;
    const OscilloscopeResult result = data.Read(InputFile({bytes, size}));
    Require(data.DescribeFailure(result).empty() == (result == OscilloscopeResult::Ok));
    if (result != OscilloscopeResult::Ok)
        return 0;
    Require(data.LineCount() >= 1);
    Require(data.Resolution() >= 0);
    ReadLines(data);
    if (const auto extra = data.ReadMtfExtra())
        Require(extra->table.size() == extra->flags.size());
    return 0;
}
