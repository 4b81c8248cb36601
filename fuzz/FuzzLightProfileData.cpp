#include "fuzz/FuzzInput.h"
#include "viewers/lightprofile/LightProfileData.h"

#include <algorithm>

namespace vireo {

namespace {

void CheckLines(const LightProfileData& data)
{
    const SampleLines& lines = data.Lines();
    Require(lines.LineCount() >= 1 && lines.LineWidth() >= 0);
    // What is given is in the file.
    Require(lines.LineWidth() <= data.DataLength());
    for (const std::int64_t line : {std::int64_t{0}, lines.LineCount() - 1}) {
        ProfileLine profile;
        Require(lines.ReadLine(line, profile));
        Require(profile.Length() == lines.PixelsOfLine(line));
        Require(lines.Layout().isSigned32 == profile.IsWide() || profile.Length() == 0);
    }
    Require(lines.PixelsOfLine(lines.LineCount()) == 0);
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    using Accept = LightProfileData::Accept;
    for (const Accept accept : {Accept::LightProfiles, Accept::AnyFile}) {
        LightProfileData data;
        const LightProfileResult result = data.Read(InputFile({bytes, size}), accept);
        Require(data.DescribeFailure(result).empty() == (result == LightProfileResult::Ok));
        Require(result == LightProfileResult::Ok || data.Lines().LineCount() == 0);
        if (result == LightProfileResult::Ok)
            CheckLines(data);
        Require(data.Cameras().pixelPitchMm >= 0.0);
    }
    return 0;
}
