// What libtiff's tools and ImageMagick write is read, and what is written they read, to the same
// pixels.

#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <utility>

namespace vireo {
namespace {

std::vector<std::string> Words(const std::string& text)
{
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

struct Depth {
    const char* name;
    const char* options; ///< Of ImageMagick's convert.
};

/// 0 is white, as in all files with CCITT codes that are to be understood.
constexpr Depth kBilevel{"bilevel",
    "-colorspace Gray -ordered-dither o4x4 -monochrome -depth 1 "
    "-define quantum:polarity=min-is-white"};
constexpr Depth kGray{"gray", "-colorspace Gray -depth 8 -type Grayscale"};
constexpr Depth kRgb{"RGB", "-depth 8 -type TrueColor"};
constexpr Depth kPalette{"palette", "-colors 200 -depth 8 -type Palette"};
constexpr Depth kGray16{"gray of 16 bits", "-colorspace Gray -depth 16 -type Grayscale"};
constexpr Depth kRgb16{"RGB of 16 bits", "-depth 16 -type TrueColor"};

void PrintTo(const Depth& depth, std::ostream* out)
{
    *out << depth.name;
}

class TiffTools : public testing::TestWithParam<Depth> {
protected:
    void SetUp() override
    {
        if (!HasTool("convert") || !HasTool("compare") || !HasTool("tiffcp") || !HasTool("tiffcmp"))
            GTEST_SKIP() << "Needs libtiff-tools and imagemagick.";
        Run("convert",
            "-seed 3 -size 301x97 plasma:tomato-steelblue -attenuate 0.3 +noise Gaussian "
                + std::string(GetParam().options) + " -compress none",
            {source});
    }

    static void Run(const std::string& tool, const std::string& options,
        const std::vector<std::filesystem::path>& files)
    {
        std::vector<std::string> arguments = Words(options);
        for (const auto& file : files)
            arguments.push_back(Text(file));
        const ProgramRun run = RunTool(tool, arguments);
        ASSERT_EQ(run.exitStatus, 0) << tool << ' ' << options << '\n' << run.error;
    }
    /// Whether vireo-cli has written it.
    static bool Convert(const std::filesystem::path& from, const std::filesystem::path& to,
        const std::string& options)
    {
        std::vector<std::string> arguments{"convert", Text(from), "-o", Text(to)};
        for (std::string& word : Words(options))
            arguments.push_back(std::move(word));
        return RunCli(arguments).exitStatus == 0;
    }
    /// tiffcmp, of which the status tells whether pixels differ, and ImageMagick's own count.
    /// Which bit is white is not tiffcmp's matter, so bilevel pictures are made RGB for it.
    void ExpectSamePixels(const std::filesystem::path& file)
    {
        std::vector<std::filesystem::path> pair = {source, file};
        for (auto& picture : pair) {
            if (GetParam().name != std::string(kBilevel.name))
                continue;
            const std::filesystem::path bilevel = std::exchange(picture, picture.string() + ".rgb");
            Run("tiff2rgba", "-c none", {bilevel, picture});
        }
        Run("tiffcmp", "-t", pair);
        Run("compare", "-metric AE", {source, file, "null:"});
    }

    const TempFolder folder;
    const std::filesystem::path source = folder.Path() / "source.tif";
};

INSTANTIATE_TEST_SUITE_P(
    Depths, TiffTools, testing::Values(kBilevel, kGray, kRgb, kPalette, kGray16, kRgb16));

TEST_P(TiffTools, ReadWhatIsWritten)
{
    const std::string name = GetParam().name;
    const bool isBilevel = name == kBilevel.name;
    const bool isWide = name == kGray16.name || name == kRgb16.name;
    const struct {
        const char* options;
        bool isTaken;
    } forms[] = {
        {"--compression none", true},
        {"--compression huffman", isBilevel},
        {"--compression g4", isBilevel},
        {"--compression lzw", true},
        {"--compression lzw --predictor 2", !isBilevel && name != kPalette.name},
        {"--compression packbits", !isWide},
    };
    for (const auto& form : forms) {
        SCOPED_TRACE(form.options);
        const auto written = folder.Path() / "written.tif";
        std::filesystem::remove(written);
        ASSERT_EQ(Convert(source, written, form.options), form.isTaken);
        if (form.isTaken)
            ExpectSamePixels(written);
    }
}

TEST_P(TiffTools, AreReadInEveryForm)
{
    std::vector<std::string> forms = {"-c none -r 1", "-B -c none", "-c packbits -r 7",
        "-B -c packbits", "-c lzw -r 20", "-B -c lzw -r 97"};
    if (GetParam().name == std::string(kBilevel.name))
        forms.insert(forms.end(), {"-c g4 -r 10", "-B -c g4 -r 97"});
    else
        forms.insert(forms.end(), {"-c lzw:2 -r 33", "-B -c lzw:2"});
    for (const std::string& form : forms) {
        SCOPED_TRACE(form);
        const auto theirs = folder.Path() / "theirs.tif", ours = folder.Path() / "ours.tif";
        Run("tiffcp", form, {source, theirs});
        ASSERT_TRUE(Convert(theirs, ours, "--compression none"));
        ExpectSamePixels(ours);
    }
}

TEST_P(TiffTools, TilesAreRefused)
{
    const auto tiled = folder.Path() / "tiled.tif";
    Run("tiffcp", "-t -w 64 -l 64", {source, tiled});
    EXPECT_EQ(RunCli({"analyse", Text(tiled)}).Objects().at(0)["result"], "0x8447001c");
}

} // namespace
} // namespace vireo
