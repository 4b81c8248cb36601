#include "viewers/startest/StarTestReader.h"

#include "platform/NumberScanner.h"
#include "platform/Text.h"
#include "testfile/HeaderKeys.h"
#include "testfile/HeaderNames.h"
#include "viewers/startest/StarTestAnalysis.h"
#include "viewers/startest/StarTestAverage.h"

#include <algorithm>
#include <utility>

namespace vireo {

StarTestRow ParseStarTestRow(std::string_view line)
{
    NumberScanner numbers(line);
    numbers.ReadInteger();
    StarTestRow row;
    row.xPosition = numbers.ReadFloat();
    row.yPosition = numbers.ReadFloat();
    row.yPositionColumn = numbers.ReadInteger();
    row.wideLine = numbers.ReadFloat();
    row.timeStamp = numbers.ReadInteger();
    row.byteCount = numbers.ReadInteger();
    row.lineIndex = numbers.ReadInteger();
    row.xLineWidth = numbers.ReadFloat();
    row.yLineWidth = numbers.ReadFloat();
    // Of the masks a file holds one byte.
    row.xRestart = static_cast<std::int8_t>(numbers.ReadInteger());
    row.yRestart = static_cast<std::int8_t>(numbers.ReadInteger());
    return row;
}

namespace {

constexpr std::string_view kBeginData = "BEGIN_DATA";
constexpr std::string_view kEndData = "END_DATA";

/// The shortest data line with all of its columns: "0 0 0 0 0 0 0 0 0 0 0 0" and a line feed.
constexpr std::uint64_t kShortestLineBytes = 24;

struct IntegerKey {
    std::string_view name;
    std::int32_t StarTestSweep::*value;
};

constexpr IntegerKey kIntegerKeys[] = {
    {"ScanSpeed", &StarTestSweep::m_iScanSpeed},
    {"Resolution", &StarTestSweep::m_iResolution},
    {"XVib_Start", &StarTestSweep::m_iXVib_Start},
    {"XVib_End", &StarTestSweep::m_iXVib_End},
    {"YVib_Start", &StarTestSweep::m_iYVib_Start},
    {"YVib_End", &StarTestSweep::m_iYVib_End},
    {"WideLine_Start", &StarTestSweep::m_iWideLine_Start},
    {"WideLine_End", &StarTestSweep::m_iWideLine_End},
    {"ScanSpeedIndex", &StarTestSweep::m_iScanSpeedIndex},
    {"ScanSpeedWidth", &StarTestSweep::m_iScanSpeedWidth},
    {"ScanSpeedBytePerPix", &StarTestSweep::m_iScanSpeedBytePerPix},
};

/// "Key = value" in its two parts, blanks around the key taken off.
struct KeyLine {
    std::string_view key;
    std::string_view value;
};

KeyLine SplitKeyLine(std::string_view line)
{
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return {};
    return {Trimmed(line.substr(0, equals)), line.substr(equals + 1)};
}

/// Whether a line holds a key that all tests share.
bool IsCommonLine(std::string_view line)
{
    TestFileHeader header;
    header.SetText(line);
    return !ListHeaderKeys(header).empty();
}

/// Takes the number behind the '=' of a line that holds a key, wherever it does.
void TakeNumber(std::string_view line, std::string_view key, std::int32_t& number)
{
    const std::size_t found = line.find(key);
    if (found == std::string_view::npos)
        return;
    const std::size_t equals = line.find('=', found);
    if (equals != std::string_view::npos)
        number = ParseInteger(line.substr(equals + 1));
}

} // namespace

StarTestReader::StarTestReader(StarTestData& data, std::uint64_t fileBytes)
    : m_data(data),
      m_linesLeft(static_cast<std::int64_t>(fileBytes / kShortestLineBytes)
          + StarTestData::kMostMissingLines)
{
}

bool StarTestReader::TakeLine(std::string_view line)
{
    constexpr unsigned kDigits = 10;
    if (!m_isInData)
        TakeHeaderLine(line);
    else if (!line.empty() && static_cast<unsigned char>(line.front()) - unsigned{'0'} < kDigits)
        TakeDataLine(line);
    else
        TakeKeyLine(line);
    return WantsMore();
}

bool StarTestReader::WantsMore() const
{
    return m_isInData ? m_data.m_sweeps.size() < MostSweeps()
                      : m_headerBytes <= TestFileHeader::kMaxHeaderBytes;
}

void StarTestReader::TakeHeaderLine(std::string_view line)
{
    m_headerBytes += line.size() + 1;
    if (Trimmed(line).starts_with(kBeginData)) {
        m_isInData = true;
        return;
    }
    m_hasTag = m_hasTag || line.find(tag::kStarTest) != std::string_view::npos;
    if (IsCommonLine(line)) {
        m_data.m_header.WriteText(std::string(line.substr(0, line.find('\r'))) + '\n');
        return;
    }
    TakeNumber(line, "Version", m_data.m_iVersion);
    TakeNumber(line, "Sweep", m_announcedSweeps);
    TakeNumber(line, "Repeat", m_data.m_iRepeat);
}

void StarTestReader::TakeDataLine(std::string_view line)
{
    // Lines beyond the announced number do not count.
    if (std::ssize(m_rows) < m_currentLines)
        m_rows.push_back(ParseStarTestRow(line));
}

void StarTestReader::TakeKeyLine(std::string_view line)
{
    if (line.starts_with(kEndData)) {
        m_hasSweeps = true;
        CloseSweep();
        return;
    }
    const auto [key, value] = SplitKeyLine(line);
    if (key == "Length") {
        m_hasSweeps = true;
        m_isOpen = true;
        m_currentLines = std::clamp<std::int64_t>(ParseInteger(value), 0, m_linesLeft);
        m_rows.clear();
    }
    if (m_currentLines == 0)
        return;
    for (const IntegerKey& row : kIntegerKeys)
        if (row.name == key)
            m_current.*row.value = ParseInteger(value);
    if (key == "ScanWidth")
        m_current.m_dScanWidth = ParseDouble(value);
    if (key == "AvgResult") {
        m_current.m_bAvgResult = ParseInteger(value) != 0;
        if (m_current.m_bAvgResult && m_data.m_iSelectedIndex == 0)
            m_data.m_iSelectedIndex = m_data.m_sweeps.size();
    }
}

std::size_t StarTestReader::MostSweeps() const
{
    const bool isAnnounced = m_announcedSweeps > 0;
    return static_cast<std::size_t>(isAnnounced
            ? std::min(m_announcedSweeps, StarTestData::kMostSweeps)
            : StarTestData::kMostSweeps);
}

void StarTestReader::CloseSweep()
{
    StarTestSweep sweep = std::exchange(m_current, {});
    const auto lines = static_cast<std::int32_t>(std::exchange(m_currentLines, 0));
    m_isOpen = false;
    m_linesLeft -= lines;
    sweep.SetRows(m_rows, lines);
    AnalyseSweep(sweep);
    m_data.m_sweeps.push_back(std::move(sweep));
    m_rows.clear();
}

/// Of the records that a file announces the averages at the end are worked out anew.
void StarTestReader::DropAverages()
{
    std::vector<StarTestSweep>& sweeps = m_data.m_sweeps;
    const auto rounds = static_cast<std::size_t>(m_data.m_iRepeat) + 1;
    sweeps.resize(sweeps.size() - sweeps.size() / rounds);
}

void StarTestReader::Finish()
{
    if (m_isOpen)
        CloseSweep();
    std::vector<StarTestSweep>& sweeps = m_data.m_sweeps;
    if (m_announcedSweeps > 0)
        sweeps.resize(MostSweeps());
    if (m_data.m_iRepeat >= 1) {
        DropAverages();
        AppendAverages(sweeps, m_data.m_iRepeat);
        const auto count = static_cast<std::int64_t>(sweeps.size());
        m_data.Select(count - count / (std::int64_t{m_data.m_iRepeat} + 1) + 1);
    } else {
        m_data.Select(static_cast<std::int64_t>(m_data.m_iSelectedIndex));
    }
}

} // namespace vireo
