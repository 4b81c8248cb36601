#include "limits/FigureNames.h"

#include "platform/Text.h"
#include "testfile/HeaderKeys.h"

#include <algorithm>
#include <charconv>

namespace vireo {

namespace {

using enum FigureType;

constexpr FigureRow kOscilloscope[] = {
    {"color_scanner|corrected", Flag},
    {"date|time|scanner_name|scanner_id", Text},
    {"color|camera_used|camera_count|scanner_width_factor|shown_color", Number},
    {"scanner_family|generation|firmware_revision", Number},
    {"camera_pixels|magnification|center_lines|missing", List},
    {"camera_pixels[8]", Number},
    {"magnification|center_lines[3]", Number},
    {"plane_length|line_width|line_count", Number},
    {"missing[*]", Text},
    {"planes.red|green|blue.min|max|mean", Number},
    {"planes.red|green|blue.cameras", List},
    {"planes.red|green|blue.cameras[*].camera", Text},
    {"planes.red|green|blue.cameras[*].min|max|mean", Number},
};

constexpr FigureRow kNoise[] = {
    {"line_length|width_factor", Number},
    {"has_color|has_gray", Flag},
    {"averages.red|green|blue|gray", Number},
    {"scanner_name|unit", Text},
    {"marks.red|green|blue|gray", List},
    {"marks.red|green|blue|gray[*].type|label", Text},
    {"marks.red|green|blue|gray[*].index|value", Number},
};

constexpr FigureRow kStitch[] = {
    {"width|height|resolution|data_length", Number},
    {"mode|picture_sha256", Text},
    {"missing", List},
    {"missing[*]", Text},
};

constexpr FigureRow kStarTest[] = {
    {"version|sweep_count|repeat|selected_index", Number},
    {"sweeps", List},
    {"sweeps[*].line_count|color|scan_speed_setting|scan_width|resolution", Number},
    {"sweeps[*].xvib_start|xvib_end|yvib_start|yvib_end|wideline_start|wideline_end", Number},
    {"sweeps[*].scan_speed_index|scan_speed_width|scan_speed_byte_per_pix|avg_result", Number},
    {"sweeps[*].curves.x_vibration|y_vibration|x_vibration_average|y_vibration_average|scan_speed|"
     "wide_line|wide_line_unsmoothed|x_line_width|y_line_width.min|max|mean|rms",
        Number},
};

constexpr FigureRow kTonal[] = {
    {"version|gamma_slope_limit|it8_dynamic_range|scanner_dynamic_range", Number},
    {"scanner_name|date|time|serial_no|chassis_no|firmware_build|it8_ref_file|report", Text},
    {"corrected_on_load", Flag},
    {"correlation|slope|offset|bit_depth_light|bit_depth_dark", List},
    {"correlation|slope|offset|bit_depth_light|bit_depth_dark[3]", Number},
    {"max_light_deviation|max_dark_deviation", Number},
    {"index_max_dynamic_range|index_min_dynamic_range", Number},
    {"bit_depth_index.light|dark", Number},
    {"patches", List},
    {"patches[24].L|n|sum_r|sum_g|sum_b|sum_rr|sum_gg|sum_bb|density|r|g|b", Number},
};

constexpr FigureRow kKitbag[] = {
    {"data_offset", Number},
    {"members", List},
    {"members[*].name|sha256", Text},
    {"members[*].size", Number},
    {"members[*].accepted", Flag},
};

constexpr FigureRow kTiff[] = {
    {"pages|page|width|height|color_depth_code|resolution", Number},
    {"compression|photometric|predictor|row_bytes", Number},
    {"description|result|pixels_sha256", Text},
};

/// The kinds of whose data nothing is worked out.
constexpr FigureRow kHeaderOnly[] = {
    {"data_length", Number},
    {"keys.*", HeaderKey},
};

constexpr KindFigures kFigures[] = {
    {"oscilloscope", kOscilloscope},
    {"mtf", kOscilloscope},
    {"stitch", kStitch},
    {"noise", kNoise},
    {"light-profile", kHeaderOnly},
    {"kitbag", kKitbag},
    {"adjust-center-ccd", kHeaderOnly},
    {"vertical-camera-verification", kHeaderOnly},
    {"startest", kStarTest},
    {"tonal-resolution", kTonal},
    {"tiff", kTiff},
};

/// What stands in front of the separator; that and the separator are taken off the text.
std::string_view TakeUntil(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

bool MatchesMember(std::string_view choices, const FigureStep& step)
{
    if (!step.IsMember())
        return false;
    if (choices == "*")
        return IsHeaderKeyName(step.member);
    while (!choices.empty()) {
        if (TakeUntil(choices, '|') == step.member)
            return true;
    }
    return false;
}

/// `count` is what stands in the brackets of a pattern.
bool MatchesElement(std::string_view count, const FigureStep& step)
{
    if (step.IsMember())
        return false;
    std::int64_t most = FigurePath::kHighestIndex + 1;
    if (count != "*")
        std::from_chars(count.data(), count.data() + count.size(), most);
    return step.index < most;
}

bool Matches(std::string_view pattern, std::span<const FigureStep> steps)
{
    while (!pattern.empty()) {
        std::string_view part = TakeUntil(pattern, '.');
        const std::string_view choices = TakeUntil(part, '[');
        if (steps.empty() || !MatchesMember(choices, steps.front()))
            return false;
        steps = steps.subspan(1);
        // What is left of the part is "3]".
        const bool hasElement = !part.empty();
        if (hasElement && (steps.empty() || !MatchesElement(TakeUntil(part, ']'), steps.front())))
            return false;
        if (hasElement)
            steps = steps.subspan(1);
    }
    return steps.empty();
}

/// The key of a header may be a list, and an element of it is meant.
bool IsElementOfKey(const FigureRow& row, std::span<const FigureStep> steps)
{
    return row.type == FigureType::HeaderKey && !steps.back().IsMember()
        && Matches(row.pattern, steps.first(steps.size() - 1));
}

} // namespace

bool MatchesFigure(std::string_view pattern, const FigurePath& path)
{
    return Matches(pattern, path.steps);
}

std::span<const KindFigures> AllFigures()
{
    return kFigures;
}

const KindFigures* FindKindFigures(std::string_view kind)
{
    const auto found = std::ranges::find(kFigures, kind, &KindFigures::kind);
    return found == std::end(kFigures) ? nullptr : found;
}

std::optional<FigureType> FindFigure(const KindFigures& kind, const FigurePath& path)
{
    for (const FigureRow& row : kind.rows) {
        if (Matches(row.pattern, path.steps) || IsElementOfKey(row, path.steps))
            return row.type;
    }
    return std::nullopt;
}

} // namespace vireo
