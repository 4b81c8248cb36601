#include "fuzz/FuzzInput.h"
#include "viewers/noise/NoiseData.h"

#include <algorithm>

namespace vireo {

namespace {

void CheckMarks(const NoisePlane& plane, NoiseMarkKind kind)
{
    const std::vector<std::int32_t>& marks = plane.Marks(kind);
    Require(std::ranges::is_sorted(marks));
    for (const std::int32_t mark : marks) {
        Require(mark >= 0 && static_cast<std::size_t>(mark) < plane.trace.samples.size());
        const int value = plane.trace.samples[static_cast<std::size_t>(mark)];
        Require(plane.Band().IsOutside(kind, value));
    }
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    NoiseData data;
    const NoiseResult result = data.Read(InputFile({bytes, size}));
    Require(data.DescribeFailure(result).empty() == (result == NoiseResult::Ok));
    Require(data.m_iLineLength >= 0);
    // A file that cannot be shown leaves an empty record.
    Require(result == NoiseResult::Ok || data.m_iLineLength == 0);
    for (const ShownColour colour : data.Planes()) {
        const NoisePlane* const plane = data.PlaneOf(colour);
        Require(plane != nullptr || data.m_iLineLength == 0);
        if (!plane)
            continue;
        // No plane is larger than the file that it came from.
        Require(plane->trace.samples.size() <= size);
        Require(plane->average >= 0 && plane->average <= 255);
        CheckMarks(*plane, NoiseMarkKind::Dip);
        CheckMarks(*plane, NoiseMarkKind::Peak);
    }
    data.Summarise();
    return 0;
}
