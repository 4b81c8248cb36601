#include "platform/ProfileText.h"

#include "platform/Text.h"

#include <algorithm>

namespace vireo {

namespace {

constexpr std::string_view kLineEndCharacters = "\r\n";

std::string_view WithoutQuotes(std::string_view value)
{
    if (value.size() >= 2 && value.front() == value.back()
        && (value.front() == '"' || value.front() == '\''))
        return value.substr(1, value.size() - 2);
    return value;
}

} // namespace

ProfileText::Line ProfileText::LineAt(std::size_t begin) const
{
    Line line;
    const std::size_t end =
        std::min(m_text.find_first_of(kLineEndCharacters, begin), m_text.size());
    const bool twoCharacters = m_text.compare(end, 2, "\r\n") == 0;
    line.whole = {begin, std::min(end + (twoCharacters ? 2 : 1), m_text.size())};

    const std::string_view raw = std::string_view(m_text).substr(begin, end - begin);
    const std::string_view content = Trimmed(raw);
    if (content.empty())
        return line;
    line.kind = LineKind::Other;
    const auto equals = raw.find('=');
    const auto bracket = content.rfind(']');
    if (content.front() == '[' && bracket != std::string_view::npos) {
        line.kind = LineKind::Section;
        line.name = Trimmed(content.substr(1, bracket - 1));
    } else if (content.front() != ';' && equals != std::string_view::npos) {
        line.kind = LineKind::Key;
        line.name = Trimmed(raw.substr(0, equals));
        line.value = Trimmed(raw.substr(equals + 1));
        const std::size_t blanks = raw.substr(equals + 1).find_first_not_of(" \t");
        line.valueBegin = begin + equals + 1 + (blanks == std::string_view::npos ? 0 : blanks);
    }
    return line;
}

std::optional<ProfileText::Section> ProfileText::FindSection(std::string_view name) const
{
    std::optional<Section> section;
    for (std::size_t position = 0; position < m_text.size();) {
        const Line line = LineAt(position);
        position = line.whole.end;
        if (line.kind == LineKind::Section) {
            if (section)
                break;
            if (EqualsIgnoringCase(line.name, Trimmed(name)))
                section = Section{line.whole, line.whole.end, line.whole.end};
        } else if (section) {
            section->whole.end = line.whole.end;
            if (line.kind != LineKind::Blank)
                section->insertAt = line.whole.end;
        }
    }
    return section;
}

std::optional<ProfileText::Line> ProfileText::FindKey(
    const Section& section, std::string_view name) const
{
    for (std::size_t position = section.linesBegin; position < section.whole.end;) {
        const Line line = LineAt(position);
        position = line.whole.end;
        if (line.kind == LineKind::Key && EqualsIgnoringCase(line.name, Trimmed(name)))
            return line;
    }
    return std::nullopt;
}

std::optional<std::string_view> ProfileText::Find(
    std::string_view section, std::string_view key) const
{
    const auto found = FindSection(section);
    if (!found)
        return std::nullopt;
    const auto line = FindKey(*found, key);
    if (!line)
        return std::nullopt;
    return WithoutQuotes(line->value);
}

std::optional<std::vector<ProfileText::Entry>> ProfileText::Entries(std::string_view section) const
{
    const auto found = FindSection(section);
    if (!found)
        return std::nullopt;
    std::vector<Entry> entries;
    for (std::size_t position = found->linesBegin; position < found->whole.end;) {
        const Line line = LineAt(position);
        position = line.whole.end;
        if (line.kind == LineKind::Key)
            entries.push_back({line.name, WithoutQuotes(line.value)});
    }
    return entries;
}

namespace {

bool IsSectionName(std::string_view name)
{
    return name.find_first_of(kLineEndCharacters) == std::string_view::npos;
}

bool IsKeyName(std::string_view name)
{
    const std::string_view trimmed = Trimmed(name);
    const bool looksLikeSection = trimmed.starts_with('[');
    return !trimmed.empty() && !trimmed.starts_with(';') && !looksLikeSection
        && trimmed.find('=') == std::string_view::npos
        && trimmed.find_first_of(kLineEndCharacters) == std::string_view::npos;
}

std::string OnOneLine(std::string_view value)
{
    std::string line(Trimmed(value));
    for (char& c : line)
        c = kLineEndCharacters.find(c) == std::string_view::npos ? c : ' ';
    return line;
}

} // namespace

/// The kind of line end that the text uses; a new text gets the platform's of such files.
std::string_view ProfileText::LineEnd() const
{
    const auto end = m_text.find_first_of(kLineEndCharacters);
    if (end == std::string::npos || m_text.compare(end, 2, "\r\n") == 0)
        return "\r\n";
    return m_text[end] == '\r' ? "\r" : "\n";
}

void ProfileText::InsertLine(std::size_t position, std::string line)
{
    const std::string_view lineEnd = LineEnd();
    const bool endsBefore =
        position == 0 || kLineEndCharacters.find(m_text[position - 1]) != std::string_view::npos;
    if (!endsBefore)
        line.insert(0, lineEnd);
    m_text.insert(position, line.append(lineEnd));
}

bool ProfileText::Set(std::string_view section, std::string_view key, std::string_view value)
{
    if (!IsSectionName(section) || !IsKeyName(key))
        return false;
    auto found = FindSection(section);
    if (!found) {
        InsertLine(m_text.size(), '[' + std::string(Trimmed(section)) + ']');
        found = FindSection(section);
    }
    if (const auto line = FindKey(*found, key)) {
        m_text.replace(line->valueBegin, line->value.size(), OnOneLine(value));
        return true;
    }
    InsertLine(found->insertAt, std::string(Trimmed(key)) + '=' + OnOneLine(value));
    return true;
}

bool ProfileText::Remove(std::string_view section, std::optional<std::string_view> key)
{
    const auto found = FindSection(section);
    if (!found)
        return false;
    Range range = found->whole;
    if (key) {
        const auto line = FindKey(*found, *key);
        if (!line)
            return false;
        range = line->whole;
    }
    m_text.erase(range.begin, range.end - range.begin);
    return true;
}

} // namespace vireo
