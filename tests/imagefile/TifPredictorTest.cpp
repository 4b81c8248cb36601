#include "imagefile/TifPredictor.h"

#include <gtest/gtest.h>

#include <vector>

namespace vireo {

namespace {

struct PredictorCase {
    const char* name;
    ColorDepth depth;
    std::size_t samples; ///< A pixel has so many,
    std::size_t bytes;   ///< each of so many bytes.
};

void PrintTo(const PredictorCase& row, std::ostream* out)
{
    *out << row.name;
}

class TifPredictor : public testing::TestWithParam<PredictorCase> { };

/// Differences that are all known: a row of `value` n times has sample i at value * (i + 1).
TEST_P(TifPredictor, AddsUpModuloTheSamplesRange)
{
    const PredictorCase& row = GetParam();
    constexpr std::size_t kGuard = 64;
    for (std::size_t width = 0; width < 130; ++width) {
        const std::size_t count = width * row.samples;
        std::vector<std::uint8_t> differences(count * row.bytes + kGuard, 0xcc);
        std::vector<std::uint8_t> expected = differences;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t step = 0x0a07 * (i % row.samples + 1) + 5;
            const std::size_t sum = step * (i / row.samples + 1);
            for (std::size_t byte = 0; byte < row.bytes; ++byte) {
                differences[i * row.bytes + byte] = static_cast<std::uint8_t>(step >> 8 * byte);
                expected[i * row.bytes + byte] = static_cast<std::uint8_t>(sum >> 8 * byte);
            }
        }
        std::vector<std::uint8_t> plainly = differences;
        UndoDifferencing(row.depth, differences.data(), width);
        UndoDifferencingPlainly(row.depth, plainly.data(), width);
        ASSERT_EQ(differences, expected) << width;
        ASSERT_EQ(plainly, expected) << width;
    }
}

INSTANTIATE_TEST_SUITE_P(Depths, TifPredictor,
    testing::Values(PredictorCase{"gray", ColorDepth::Gray8, 1, 1},
        PredictorCase{"palette", ColorDepth::Palette8, 1, 1},
        PredictorCase{"colour", ColorDepth::Rgb8, 3, 1},
        PredictorCase{"gray of 16 bits", ColorDepth::Gray16, 1, 2},
        PredictorCase{"colour of 16 bits", ColorDepth::Rgb16, 3, 2}));

} // namespace

} // namespace vireo
