#include "viewers/adjustment/AdjustmentExport.h"

#include "platform/AtomicFile.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "viewers/adjustment/AdjustmentData.h"
#include "viewers/controls/SampleExport.h"

#include <algorithm>

namespace vireo {

namespace {

/// A cell, in quotes where it needs them.
std::string Cell(const std::string& text)
{
    std::string utf8 = Utf8FromWindows1252(text);
    if (utf8.find_first_of(",\"\r\n") == std::string::npos)
        return utf8;
    std::string quoted = "\"";
    for (const char character : utf8)
        quoted.append(character == '"' ? 2 : 1, character);
    return quoted + '"';
}

} // namespace

FileStatus ExportHeaderAsCsv(
    const std::filesystem::path& target, const std::vector<HeaderRow>& rows)
{
    std::string table = "key,value,meaning\r\n";
    for (const HeaderRow& row : rows)
        table += Cell(row.key) + ',' + Cell(row.value) + ',' + Cell(row.meaning) + "\r\n";
    return WriteFileAtomically(target, table);
}

FileStatus ExportAdjustmentAsCsv(
    const std::filesystem::path& target, const AdjustmentData& data, std::int64_t line)
{
    if (data.Lines().LineCount() == 0)
        return ExportHeaderAsCsv(target, data.Rows());
    return ExportSamplesAsCsv(target, data.Lines(), data.Cameras(), data.FirstShown(), line);
}

namespace {

/// Values stand under each other in a font of one width; a line without a value is that of a tag.
std::string Labelled(std::string key, const std::string& value)
{
    constexpr std::size_t kKeyWidth = 24;
    if (value.empty())
        return key;
    key += ':';
    key.resize(std::max(key.size() + 1, kKeyWidth), ' ');
    return key + value;
}

} // namespace

std::vector<std::string> AdjustmentHeaderLines(const AdjustmentData& data)
{
    constexpr std::size_t kMostRows = 34;
    constexpr std::size_t kLongest = 100;
    std::vector<std::string> lines{std::string(data.Title()),
        Labelled("File", Windows1252FromUtf8(Utf8FromPath(data.Path().filename())))};
    const std::vector<HeaderRow>& rows = data.Rows();
    for (std::size_t i = 0; i < std::min(rows.size(), kMostRows); ++i) {
        const std::string line = Labelled(rows[i].key, rows[i].value);
        if (!line.empty()) // An empty line would end the printed ones.
            lines.push_back(line.substr(0, kLongest));
    }
    if (rows.size() > kMostRows)
        lines.push_back(Format("... and %d more", static_cast<int>(rows.size() - kMostRows)));
    std::string_view explanation = data.Explanation();
    while (!explanation.empty()) {
        const std::size_t end = std::min(explanation.find('\n'), explanation.size());
        lines.emplace_back(explanation.substr(0, end));
        explanation.remove_prefix(std::min(end + 1, explanation.size()));
    }
    return lines;
}

} // namespace vireo
