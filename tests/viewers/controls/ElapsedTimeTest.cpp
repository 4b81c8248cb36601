#include "viewers/controls/ElapsedTime.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

struct ElapsedCase {
    const char* name;
    std::int64_t milliseconds;
    const char* text;
};

class ElapsedTimeText : public testing::TestWithParam<ElapsedCase> { };

TEST_P(ElapsedTimeText, IsThatOfAClock)
{
    EXPECT_EQ(ElapsedTime::FromMilliseconds(GetParam().milliseconds).Text(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Times, ElapsedTimeText,
    testing::Values(ElapsedCase{"start", 0, "0:00:00"},
        ElapsedCase{"below a half second", 499, "0:00:00"},
        ElapsedCase{"a half second rounds up", 500, "0:00:01"},
        ElapsedCase{"last second of a minute", 59499, "0:00:59"},
        ElapsedCase{"a minute", 59500, "0:01:00"},
        ElapsedCase{"last second of an hour", 3599000, "0:59:59"},
        ElapsedCase{"an hour", 3600000, "1:00:00"},
        ElapsedCase{"every digit its own", 45296000, "12:34:56"},
        ElapsedCase{"hours do not wrap at a day", 360000000, "100:00:00"},
        ElapsedCase{"longer than 32 bits of milliseconds", 8640000000, "2400:00:00"},
        ElapsedCase{"a clock that went back", -5000, "0:00:00"}),
    [](const auto& row) { return std::to_string(row.index); });

} // namespace
} // namespace vireo
