#include "fuzz/FuzzInput.h"
#include "limits/FigureNames.h"
#include "limits/LimitsFile.h"
#include "limits/Verdict.h"

#include <algorithm>
#include <string>

namespace vireo {
namespace {

/// A limit can be written anew from what was read, and is then the same limit.
void CheckLimit(const LimitsSection& section, const Limit& limit)
{
    const std::string line =
        (limit.isOptional ? "optional " : "") + limit.figure.Text() + ' ' + limit.wording;
    LimitsFile again;
    Require(!again.Parse('[' + section.kind + "]\n" + line));
    const Limit& second = again.Sections().front().limits.front();
    Require(second.figure == limit.figure && second.relation == limit.relation);
    Require(second.number.value == limit.number.value && second.text == limit.text);
    for (const FigureValue& value :
        {FigureValue(0.5), FigureValue(std::int64_t{7}), FigureValue(ListLength{2})})
        Require(IsWithin(limit, value) == IsWithin(second, value));
    Require(!IsWithin(limit, std::monostate()));
}

} // namespace
} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vireo;
    const std::string_view text = AsText({data, size});
    LimitsFile file;
    if (const auto fault = file.Parse(text)) {
        Require(file.Sections().empty() && fault->line >= 1);
        Require(fault->line <= 1 + std::count(text.begin(), text.end(), '\n'));
        return 0;
    }
    for (const LimitsSection& section : file.Sections()) {
        Require(FindKindFigures(section.kind) != nullptr);
        for (const Limit& limit : section.limits)
            CheckLimit(section, limit);
        Require(file.LimitsOf(section.kind, section.family).size() <= LimitsFile::kMostLimits);
    }
    return 0;
}
