#include "platform/Log.h"
#include "platform/Message.h"
#include "testfile/CPicture.h"
#include "testfile/DarkLine.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace vireo {

bool CPicture::CheckBrightness(std::string_view function) const
{
    if (!HasBrightness())
        ShowMessage("Not RGB or Gray picture\nCPicture::" + std::string(function) + "() not valid");
    return HasBrightness();
}

CPicture::Stretch CPicture::ColumnStretch(
    std::int32_t column, std::int32_t start, std::int32_t end) const
{
    if (column < 0 || column >= m_iWidth)
        return {};
    start = std::max(start, 0);
    const std::int64_t samples = m_PicData == PIC_RGB ? 3 : 1;
    const std::int64_t count = std::int64_t{std::min(end, m_iHeight)} - start;
    return {start * LinePitch() + column * samples, LinePitch(), count, start};
}

CPicture::Stretch CPicture::RowStretch(std::int32_t row, std::int32_t start, std::int32_t end) const
{
    if (row < 0 || row >= m_iHeight)
        return {};
    start = std::max(start, 0);
    const std::int64_t samples = m_PicData == PIC_RGB ? 3 : 1;
    const std::int64_t count = std::int64_t{std::min(end, m_iWidth)} - start;
    return {row * LinePitch() + start * samples, samples, count, start};
}

std::vector<double> CPicture::Profile(const Stretch& stretch) const
{
    std::vector<double> profile;
    const std::int64_t samples = m_PicData == PIC_RGB ? 3 : 1;
    for (std::int64_t i = 0, place = stretch.firstByte; i < stretch.count;
         ++i, place += stretch.step) {
        if (place + samples > m_iDataLength)
            break; // Fields and data need not go together.
        double sum = 0.0;
        for (std::int64_t sample = 0; sample < samples; ++sample)
            sum += m_ptrBuffer[static_cast<std::size_t>(place + sample)];
        profile.push_back(sum / static_cast<double>(samples));
    }
    return profile;
}

std::optional<CPicture::Line> CPicture::FindLine(const Stretch& stretch) const
{
    const auto line = FindDarkLine(Profile(stretch));
    if (!line)
        return std::nullopt;
    return Line{
        stretch.start + static_cast<std::int32_t>(line->darkest), stretch.start + line->centre};
}

std::optional<std::int32_t> CPicture::FindHorizontalLineAtPixelColumn(
    std::int32_t iColumn, std::int32_t iStartRow, std::int32_t iEndRow) const
{
    if (!CheckBrightness("FindHorizontalLineAtPixelColumn"))
        return std::nullopt;
    const auto line = FindLine(ColumnStretch(iColumn, iStartRow, iEndRow));
    return line ? std::optional(line->darkest) : std::nullopt;
}

std::optional<double> CPicture::FindCenterOfHorizontalLine(
    std::int32_t iColumn, std::int32_t iStartRow, std::int32_t iEndRow) const
{
    if (!CheckBrightness("FindCenterOfHorizontalLine"))
        return std::nullopt;
    const auto line = FindLine(ColumnStretch(iColumn, iStartRow, iEndRow));
    return line ? std::optional(line->centre) : std::nullopt;
}

std::optional<std::int32_t> CPicture::FindVerticalLineAtPixelRow(
    std::int32_t iRow, std::int32_t iStartColumn, std::int32_t iEndColumn) const
{
    if (!CheckBrightness("FindVerticalLineAtPixelRow"))
        return std::nullopt;
    const auto line = FindLine(RowStretch(iRow, iStartColumn, iEndColumn));
    return line ? std::optional(line->darkest) : std::nullopt;
}

std::optional<double> CPicture::FindCenterOfVerticalLine(
    std::int32_t iSearchRow, std::int32_t iStartColumn, std::int32_t iEndColumn) const
{
    if (iSearchRow < 0 || iStartColumn < 0) {
        Log_Msg(iSearchRow < 0 ? "WARNING FindCenterOfVerticalLine :: iSearchRow < 0"
                               : "WARNING FindCenterOfVerticalLine :: iStartColumn < 0");
        return std::nullopt;
    }
    if (!CheckBrightness("FindCenterOfVerticalLine"))
        return std::nullopt;
    const auto line = FindLine(RowStretch(iSearchRow, iStartColumn, iEndColumn));
    return line ? std::optional(line->centre) : std::nullopt;
}

} // namespace vireo
