#include "viewers/stitch/StitchExport.h"

#include "viewers/controls/LineTable.h"
#include "viewers/stitch/StitchData.h"

#include <algorithm>
#include <vector>

namespace vireo {

namespace {

/// Lowest, highest and sum of some columns over all rows of a picture.
class ColumnFigures {
public:
    ColumnFigures(const PictureRows& rows, std::int64_t first, std::int64_t count)
        : m_first(first),
          m_lowest(static_cast<std::size_t>(count), PictureRows::kWhite),
          m_highest(static_cast<std::size_t>(count), 0),
          m_sums(static_cast<std::size_t>(count), 0),
          m_part(static_cast<std::size_t>(count), 0)
    {
        AddCovered(rows);
        // The rows that have no data are white.
        const std::int64_t white = rows.Height() - rows.CoveredRows();
        for (std::size_t i = 0; white > 0 && i < m_sums.size(); ++i) {
            m_highest[i] = PictureRows::kWhite;
            m_sums[i] += static_cast<std::uint64_t>(white) * PictureRows::kWhite;
        }
    }

    int Lowest(std::int64_t column) const { return m_lowest[At(column)]; }
    int Highest(std::int64_t column) const { return m_highest[At(column)]; }
    double Sum(std::int64_t column) const { return static_cast<double>(m_sums[At(column)]); }

private:
    std::size_t At(std::int64_t column) const { return static_cast<std::size_t>(column - m_first); }

    void AddCovered(const PictureRows& rows)
    {
        constexpr std::int64_t kReadBytes = 256 * 1024;
        constexpr std::int64_t kRowsOfPart = 65'536; // Their sum fits into 32 bits.
        const auto count = static_cast<std::int64_t>(m_sums.size());
        const std::int64_t band = std::max<std::int64_t>(kReadBytes / count, 1);
        std::vector<std::uint8_t> pixels(static_cast<std::size_t>(band * count));
        for (std::int64_t row = 0; row < rows.CoveredRows(); row += band) {
            const std::int64_t height = std::min(band, rows.CoveredRows() - row);
            rows.Read({m_first, row, count, height},
                std::span(pixels).first(static_cast<std::size_t>(height * count)));
            for (std::int64_t i = 0; i < height; ++i) {
                AddRow(pixels.data() + i * count, m_sums.size(), m_lowest.data(), m_highest.data(),
                    m_part.data());
                if ((row + i) % kRowsOfPart == kRowsOfPart - 1)
                    AddPart();
            }
        }
        AddPart();
    }

    // For the compiler's vectoriser.
    static void AddRow(const std::uint8_t* __restrict row, std::size_t count,
        std::uint8_t* __restrict lowest, std::uint8_t* __restrict highest,
        std::uint32_t* __restrict sums)
    {
        for (std::size_t i = 0; i < count; ++i) {
            lowest[i] = row[i] < lowest[i] ? row[i] : lowest[i];
            highest[i] = row[i] < highest[i] ? highest[i] : row[i];
            sums[i] += row[i];
        }
    }

    void AddPart()
    {
        for (std::size_t i = 0; i < m_sums.size(); ++i) {
            m_sums[i] += m_part[i];
            m_part[i] = 0;
        }
    }

    std::int64_t m_first;
    std::vector<std::uint8_t> m_lowest;
    std::vector<std::uint8_t> m_highest;
    std::vector<std::uint64_t> m_sums;
    std::vector<std::uint32_t> m_part; ///< The rows not yet added to m_sums.
};

} // namespace

FileStatus ExportStitchAsCsv(
    const std::filesystem::path& target, const StitchData& data, std::int64_t row)
{
    constexpr double kMillimetresPerInch = 25.4;
    const PictureRows& picture = *data.Picture();
    const auto height = static_cast<double>(picture.Height());
    const auto appendRows = [&](std::string& text, std::int64_t first, std::int64_t count) {
        const ColumnFigures figures(picture, first, count);
        std::vector<std::uint8_t> values(static_cast<std::size_t>(count));
        picture.Read({first, row, count, 1}, values);
        for (std::int64_t column = first; column < first + count; ++column) {
            AppendNumber(text, column);
            text += ',';
            if (data.m_iPhysicalResolution > 0)
                AppendNumber(text,
                    static_cast<double>(column) * kMillimetresPerInch / data.m_iPhysicalResolution);
            const int entries[] = {values[static_cast<std::size_t>(column - first)],
                figures.Lowest(column), figures.Highest(column)};
            for (const int value : entries) {
                text += ',';
                AppendNumber(text, value);
            }
            text += ',';
            AppendNumber(text, figures.Sum(column) / height);
            text += "\r\n";
        }
        return true;
    };
    return WriteLineTable(
        target, "column,position_mm,value,min,max,mean\r\n", picture.Width(), appendRows);
}

} // namespace vireo
