#include "viewers/startest/StarTestPictures.h"

#include "testfile/StationSettings.h"
#include "viewers/controls/PictureMark.h"
#include "viewers/startest/StarTestData.h"

#include <cmath>
#include <system_error>

namespace vireo {

bool StationSavesStarTestPictures()
{
    const auto settings = LoadStationSettings();
    return settings && settings->ReadText("F24_SavePicFiles=").value == "TRUE";
}

std::optional<std::filesystem::path> FindRawPicture(const StarTestData& data)
{
    const std::optional<std::string> name = data.RawPictureName(data.m_iSelectedIndex);
    if (!name)
        return std::nullopt;
    const std::filesystem::path folder = data.Path().parent_path();
    for (const std::filesystem::path& candidate : {folder / *name, folder / "StarTest" / *name}) {
        std::error_code error;
        if (std::filesystem::is_regular_file(candidate, error))
            return candidate;
    }
    return std::nullopt;
}

std::string DescribeMissingPicture(const StarTestData& data)
{
    const std::optional<std::string> name = data.RawPictureName(data.m_iSelectedIndex);
    if (!name)
        return "An average has no picture of its own. Select one of the measured sweeps.";
    return "The picture of this sweep, " + *name
        + ", is neither beside the file nor in the folder StarTest beside it.";
}

namespace {

/// A position as a whole pixel; 0 for what is no number or far outside of any picture.
std::int64_t PixelOf(float position)
{
    constexpr float kLargest = 1e9F;
    return std::abs(position) < kLargest ? std::lround(position) : 0;
}

} // namespace

MarkedPicture MarkPicture(
    const StarTestData& data, const std::filesystem::path& picture, std::int64_t cursorLine)
{
    MarkedPicture marked{picture, {}, {0, cursorLine}};
    const StarTestSweep* const sweep = data.SelectedSweep();
    if (!sweep)
        return marked;
    const LineRange lines = LinesBetween(
        sweep->m_iXVib_Start, std::int64_t{sweep->m_iXVib_End} - 1, sweep->m_XPosition.size());
    for (std::size_t i = lines.begin; i < lines.end; ++i) {
        marked.marks.push_back({sweep->m_YPositionColumn[i], PixelOf(sweep->m_YPosition[i])});
        marked.marks.push_back({PixelOf(sweep->m_XPosition[i]), static_cast<std::int64_t>(i)});
    }
    if (cursorLine >= 0 && cursorLine < std::ssize(sweep->m_XPosition))
        marked.middle.column = PixelOf(sweep->m_XPosition[static_cast<std::size_t>(cursorLine)]);
    return marked;
}

} // namespace vireo
