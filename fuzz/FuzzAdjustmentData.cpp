#include "fuzz/FuzzInput.h"
#include "viewers/adjustment/AdjustmentData.h"

#include <algorithm>

namespace vireo {

namespace {

void Check(const AdjustmentData& data)
{
    const bool isProfile = data.DataForm() == AdjustmentData::Form::Profile;
    const bool isPicture = data.DataForm() == AdjustmentData::Form::Picture;
    Require(!data.Explanation().empty());
    Require(data.Rows().size() <= kMostHeaderRows);
    Require((data.Lines().LineCount() > 0) == (isProfile || isPicture));
    Require((data.Picture() != nullptr) == isPicture);
    if (data.Lines().LineCount() > 0) {
        // Lines that explain the data explain them to the byte.
        const SampleLayout& layout = data.Lines().Layout();
        Require(layout.samples * layout.BytesPerSample() == data.DataLength());
        ProfileLine line;
        Require(data.Lines().ReadLine(layout.lineCount - 1, line));
        Require(line.Length() == layout.lineWidth);
    }
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    for (const AdjustmentKind kind :
        {AdjustmentKind::AdjustCenterCcd, AdjustmentKind::VerticalCameraVerification}) {
        AdjustmentData data;
        const AdjustmentResult result = data.Read(InputFile({bytes, size}), kind);
        Require(data.DescribeFailure(result).empty() == (result == AdjustmentResult::Ok));
        Require(!data.Title().empty());
        if (result == AdjustmentResult::Ok)
            Check(data);
    }
    return 0;
}
