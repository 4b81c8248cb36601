// vireo-make-samples: writes the sample files of this folder, or one huge file for measuring.

#include "platform/AtomicFile.h"
#include "platform/Path.h"
#include "samples/BigFiles.h"
#include "samples/SampleFile.h"

#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kBadUsage = 2;

int Fail(const std::string& what)
{
    std::fprintf(stderr, "vireo-make-samples: %s\n", what.c_str());
    return kFailed;
}

int Usage()
{
    std::fprintf(stderr,
        "usage: vireo-make-samples FOLDER | --big KIND BYTES PATH\nKIND is one of: %s\n",
        std::string(vireo::BigFileKinds()).c_str());
    return kBadUsage;
}

int WriteSamples(const std::filesystem::path& folder)
{
    for (const vireo::SampleFile& sample : vireo::AllSamples()) {
        const std::filesystem::path path = folder / sample.name;
        std::error_code error;
        std::filesystem::create_directories(path.parent_path(), error);
        const vireo::FileStatus status = vireo::WriteFileAtomically(path, sample.bytes);
        if (status != vireo::FileStatus::Ok) {
            return Fail(vireo::Utf8FromPath(path) + ": " + std::string(vireo::Describe(status)));
        }
    }
    return kDone;
}

std::optional<std::uint64_t> ByteCount(const std::string& text)
{
    std::uint64_t bytes = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, bytes);
    if (error != std::errc() || stop != end || bytes == 0)
        return std::nullopt;
    return bytes;
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 4 && arguments[0] == "--big") {
        const std::optional<std::uint64_t> bytes = ByteCount(arguments[2]);
        if (!bytes)
            return Usage();
        const bool written =
            vireo::WriteBigFile(arguments[1], *bytes, vireo::PathFromUtf8(arguments[3]));
        return written ? kDone : Fail(arguments[3] + ": cannot be made");
    }
    if (arguments.size() != 1 || arguments[0].starts_with("-"))
        return Usage();
    return WriteSamples(vireo::PathFromUtf8(arguments[0]));
}
