#include "limits/LimitsFile.h"

#include "limits/FigureNames.h"
#include "limits/LimitsLine.h"
#include "platform/PositionalFile.h"
#include "platform/Text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace vireo {

std::optional<double> Limit::Highest() const
{
    switch (relation) {
    case Relation::Between:
        return upper.value;
    case Relation::AtMost:
    case Relation::Below:
    case Relation::Equal:
        return text || flag ? std::nullopt : std::optional(number.value);
    default:
        return std::nullopt;
    }
}

std::optional<double> Limit::Lowest() const
{
    switch (relation) {
    case Relation::Between:
    case Relation::AtLeast:
    case Relation::Above:
    case Relation::Equal:
        return text || flag ? std::nullopt : std::optional(number.value);
    default:
        return std::nullopt;
    }
}

std::string LimitsFault::Text() const
{
    return line == 0 ? text : Format("Line %d: ", line) + text;
}

std::optional<LimitsFault> LimitsFile::Read(const std::filesystem::path& path)
{
    m_sections.clear();
    std::string text;
    if (const FileStatus status = ReadWholeFile(path, kMostBytes, text); status != FileStatus::Ok)
        return LimitsFault{std::string(Describe(status))};
    return Parse(text);
}

namespace {

/// Reads the sections of a text line by line.
class Parser {
public:
    /// The reason when the line cannot be read, else an empty text.
    std::string Add(std::string_view line, int number)
    {
        line = WithoutComment(line);
        if (line.empty())
            return {};
        if (!IsUtf8(line))
            return "The line is not UTF-8";
        if (line.starts_with('['))
            return AddSection(line);
        return AddLimit(line, number);
    }

    std::vector<LimitsSection> TakeSections() { return std::move(m_sections); }

private:
    std::string AddSection(std::string_view line)
    {
        m_kind = nullptr;
        LimitsSection section;
        if (std::string fault = ParseSection(line, section); !fault.empty())
            return fault;
        m_kind = FindKindFigures(section.kind);
        m_sections.push_back(std::move(section));
        return {};
    }

    std::string AddLimit(std::string_view line, int number)
    {
        if (!m_kind)
            return "Limits stand behind a [KIND]";
        if (m_count++ == LimitsFile::kMostLimits)
            return Format("There are more than %zu limits", LimitsFile::kMostLimits);
        Limit limit;
        limit.line = number;
        std::string fault = ParseLimit(line, *m_kind, limit);
        m_sections.back().limits.push_back(std::move(limit));
        return fault;
    }

    std::vector<LimitsSection> m_sections;
    const KindFigures* m_kind = nullptr;
    std::size_t m_count = 0;
};

std::string_view WithoutByteOrderMark(std::string_view text)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

} // namespace

std::optional<LimitsFault> LimitsFile::Parse(std::string_view text)
{
    m_sections.clear();
    Parser parser;
    std::string_view rest = WithoutByteOrderMark(text);
    for (int number = 1; !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (std::string fault = parser.Add(line, number); !fault.empty())
            return LimitsFault{std::move(fault), number};
    }
    m_sections = parser.TakeSections();
    return std::nullopt;
}

std::vector<const Limit*> LimitsFile::LimitsOf(
    std::string_view kind, std::optional<int> family) const
{
    std::vector<const Limit*> general;
    std::vector<const Limit*> own;
    for (const LimitsSection& section : m_sections) {
        if (section.kind != kind || (section.family && section.family != family))
            continue;
        auto& limits = section.family ? own : general;
        for (const Limit& limit : section.limits)
            limits.push_back(&limit);
    }
    std::set<std::string> replaced;
    for (const Limit* limit : own)
        replaced.insert(limit->figure.Text());
    std::erase_if(general,
        [&replaced](const Limit* limit) { return replaced.contains(limit->figure.Text()); });
    general.insert(general.end(), own.begin(), own.end());
    std::ranges::sort(general, {}, &Limit::line);
    return general;
}

} // namespace vireo
