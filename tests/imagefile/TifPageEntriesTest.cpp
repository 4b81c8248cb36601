#include "tests/TempFolder.h"
#include "tests/imagefile/GrayFile.h"

#include <gtest/gtest.h>

#include <ostream>

namespace vireo {

namespace {

struct PageCase {
    const char* name;
    ImageResult expected; ///< Of Open.
    TifEntries changes;
};

void PrintTo(const PageCase& row, std::ostream* out)
{
    *out << row.name;
}

class CTIFReaderPage : public testing::TestWithParam<PageCase> { };

TEST_P(CTIFReaderPage, Opens)
{
    const TempFolder folder;
    const auto file = folder.Write("picture.tif", GrayFile(GetParam().changes));
    EXPECT_EQ(ReadTif(file).open, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Tags, CTIFReaderPage,
    testing::Values( //
        PageCase{"as it is", kOk, {}},
        PageCase{"width as a byte", kFormat, {{F::kWidth, {E::kByte, {2}}}}},
        PageCase{"two heights", kFormat, {{F::kHeight, {kLong, {2, 2}}}}},
        PageCase{"no width", kFormat, {{F::kWidth, kAbsent}}},
        PageCase{"height 0", kFormat, {{F::kHeight, {kLong, {0}}}}},
        PageCase{"bits as a long", kUnsupported, {{F::kBits, {kLong, {8}}}}},
        PageCase{"4 bits", kUnsupported, {{F::kBits, {kShort, {4}}}}},
        PageCase{"12 bits", kUnsupported, {{F::kBits, {kShort, {12}}}}},
        PageCase{"four samples", kUnsupported, {{F::kBits, {kShort, {8, 8, 8, 8}}}}},
        PageCase{"samples of 8, 4 and 8 bits", kUnsupported, {{F::kBits, {kShort, {8, 4, 8}}}}},
        PageCase{"compression as a long", kFormat, {{F::kCompression, {kLong, {1}}}}},
        PageCase{"Group 3", kUnsupported, {{F::kCompression, {kShort, {3}}}}},
        PageCase{"JPEG", kUnsupported, {{F::kCompression, {kShort, {7}}}}},
        PageCase{"no compression", kOk, {{F::kCompression, kAbsent}}},
        PageCase{"photometric of two values", kFormat, {{F::kPhotometric, {kShort, {1, 1}}}}},
        PageCase{"any photometric", kOk, {{F::kPhotometric, {kShort, {777}}}}},
        PageCase{"description of bytes", kFormat, {{F::kDescription, {E::kByte, {65}}}}},
        PageCase{"strip offsets as rationals", kFormat, {{F::kStripOffsets, {kRational, {8, 1}}}}},
        PageCase{
            "no strips", kFormat, {{F::kStripOffsets, kAbsent}, {F::kStripByteCounts, kAbsent}}},
        PageCase{"fewer strips than the rows need", kFormat, {{F::kRowsPerStrip, {kLong, {1}}}}},
        PageCase{"more byte counts than strips", kFormat, {{F::kStripByteCounts, {kLong, {2, 2}}}}},
        PageCase{"no byte counts", kOk, {{F::kStripByteCounts, kAbsent}}},
        PageCase{
            "strip table beyond the file", kCantRead, {{F::kStripOffsets, {kLong, {8}, 1000}}}},
        PageCase{"strip table of four thousand million", kCantRead,
            {{F::kStripOffsets, {kLong, {8}, 0xffffffff}}}},
        PageCase{"no rows per strip", kOk, {{F::kRowsPerStrip, kAbsent}}},
        PageCase{"0 rows per strip", kOk, {{F::kRowsPerStrip, {kLong, {0}}}}},
        PageCase{"x resolution as a long", kFormat, {{F::kXResolution, {kLong, {300}}}}},
        PageCase{"two y resolutions", kFormat, {{F::kYResolution, {kRational, {1, 1, 1, 1}}}}},
        PageCase{"planes apart", kUnsupported, {{F::kPlanar, {kShort, {2}}}}},
        PageCase{"planes as a long", kFormat, {{F::kPlanar, {kLong, {1}}}}},
        PageCase{"unit 4", kFormat, {{F::kResolutionUnit, {kShort, {4}}}}},
        PageCase{"unit 0", kFormat, {{F::kResolutionUnit, {kShort, {0}}}}},
        PageCase{"predictor 3", kUnsupported, {{F::kPredictor, {kShort, {3}}}}},
        PageCase{"colour map of 767", kFormat,
            {{F::kColorMap, {kShort, std::vector<std::uint32_t>(767)}}}},
        PageCase{"colour map of a bilevel page", kFormat,
            {{F::kBits, {kShort, {1}}}, {F::kColorMap, {kShort, std::vector<std::uint32_t>(768)}}}},
        PageCase{"profile of bytes", kFormat, {{F::kIccProfile, {E::kByte, {1}}}}},
        PageCase{"profile that nobody asked for, beyond the file", kOk,
            {{F::kIccProfile, {E::kUndefined, {1}, 0xffffffff}}}},
        PageCase{"tags of others", kOk,
            {{254, {kLong, {0}}}, {266, {kShort, {2}}}, {333, {E::kAscii, {65}}},
                {34674, {99, {1}}}, {65000, {99, {1}}}}},
        PageCase{"the first thing wrong counts", kUnsupported,
            {{F::kBits, {kShort, {4}}}, {F::kPlanar, {kLong, {1}}}}},
        PageCase{"rows too wide", kUnsupported, {{F::kWidth, {kLong, {64 * 1024 * 1024 + 1}}}}},
        PageCase{"two thousand million both ways", kUnsupported,
            {{F::kWidth, {kLong, {0x80000000}}}, {F::kHeight, {kLong, {0x80000000}}},
                {F::kRowsPerStrip, {kLong, {0x80000000}}}}},
        PageCase{"more rows than so short a file can hold", kCantRead,
            {{F::kHeight, {kLong, {0xffffffff}}}, {F::kRowsPerStrip, {kLong, {0xffffffff}}}}},
        PageCase{"that many LZW rows", kCantRead,
            {{F::kHeight, {kLong, {0xffffffff}}}, {F::kRowsPerStrip, {kLong, {0xffffffff}}},
                {F::kCompression, {kShort, {5}}}}}));

} // namespace

} // namespace vireo
