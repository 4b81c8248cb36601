#include "viewers/startest/StarTestExport.h"

#include "viewers/controls/LineTable.h"
#include "viewers/startest/StarTestCurves.h"
#include "viewers/startest/StarTestSweep.h"
#include "viewers/startest/StarTestText.h"

#include <cmath>
#include <string>
#include <vector>

namespace vireo {

namespace {

/// The speed's array holds the standard deviation of an average record.
std::string ColumnName(const StarTestSweep& sweep, StarTestField field)
{
    const bool isDeviation = sweep.m_bAvgResult && field == StarTestField::ScanSpeed;
    return isDeviation ? "std_dev" : std::string(FieldName(field));
}

} // namespace

FileStatus ExportSweepAsCsv(const std::filesystem::path& target, const StarTestSweep& sweep)
{
    std::string heading = "line,distance_cm";
    std::vector<std::span<const float>> columns;
    for (const StarTestCurve& curve : CurvesOf(sweep, false)) {
        heading += ',' + ColumnName(sweep, curve.field);
        columns.push_back(ValuesOf(sweep, curve.field));
    }
    const auto appendRows = [&](std::string& text, std::int64_t first, std::int64_t count) {
        for (std::int64_t line = first; line < first + count; ++line) {
            AppendNumber(text, line);
            text += ',';
            AppendNumber(text, CentimetresAt(static_cast<double>(line), sweep.m_iResolution));
            for (const std::span<const float> values : columns) {
                const float value = values[static_cast<std::size_t>(line)];
                text += ',';
                if (std::isfinite(value))
                    AppendNumber(text, value);
            }
            text += "\r\n";
        }
        return true;
    };
    return WriteLineTable(target, heading + "\r\n", sweep.LineCount(), appendRows);
}

} // namespace vireo
