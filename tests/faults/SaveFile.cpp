// vireo-save-file: saves as the viewers do, for tests that let saving fail.
//
//   vireo-save-file noise INPUT OUTPUT     the noise viewer's "Save"
//   vireo-save-file tonal INPUT OUTPUT     the tonal viewer's "Save"
//   vireo-save-file tonal-open FILE        the tonal viewer's opening, which rewrites some files
//   vireo-save-file picture INPUT OUTPUT   the picture viewer's "Save as"
//   vireo-save-file setting FILE           one value of a settings file

#include "imagefile/TifConversion.h"
#include "platform/Path.h"
#include "platform/PrivateProfile.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/tonal/TonalOpening.h"

#include <cstdio>
#include <string>
#include <vector>

namespace {

using vireo::FileStatus;

std::string Reason(FileStatus status)
{
    return status == FileStatus::Ok ? "" : std::string(vireo::Describe(status));
}

std::string SaveNoise(const std::filesystem::path& input, const std::filesystem::path& output)
{
    vireo::NoiseData data;
    if (const auto result = data.Read(input); result != vireo::NoiseResult::Ok)
        return data.DescribeFailure(result);
    return Reason(data.Save(output));
}

std::string SaveTonal(const std::filesystem::path& input, const std::filesystem::path& output)
{
    vireo::TonalResolutionData data;
    if (const auto result = data.Read(input); result != vireo::TonalResult::Ok)
        return data.DescribeFailure(result);
    return Reason(data.Write(output));
}

std::string OpenTonal(const std::filesystem::path& file)
{
    vireo::TonalResolutionData data;
    const vireo::TonalOpening opening = vireo::OpenTonalFile(file, data);
    return opening.change == vireo::TonalFileChange::Rewritten ? "" : "It was not rewritten";
}

std::string Save(const std::string& what, const std::vector<std::filesystem::path>& files)
{
    if (what == "setting")
        return Reason(vireo::PrivateProfile(files[0]).WriteString("Test", "Value", "new"));
    if (what == "tonal-open")
        return OpenTonal(files[0]);
    if (what == "noise")
        return SaveNoise(files[0], files[1]);
    if (what == "tonal")
        return SaveTonal(files[0], files[1]);
    vireo::TifConversion conversion;
    conversion.input = files[0];
    conversion.output = files[1];
    return vireo::ConvertTif(conversion);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    std::vector<std::filesystem::path> files;
    for (int i = 2; i < argc; ++i)
        files.push_back(vireo::PathFromUtf8(argv[i]));
    files.resize(2);
    const std::string reason = Save(argv[1], files);
    if (!reason.empty())
        std::fprintf(stderr, "vireo-save-file: %s\n", reason.c_str());
    return reason.empty() ? 0 : 1;
}
