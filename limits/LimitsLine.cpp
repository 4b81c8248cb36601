#include "limits/LimitsLine.h"

#include "limits/FigureNames.h"
#include "platform/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace vireo {

namespace {

/// The words of a line, taken from its beginning.
class Words {
public:
    explicit Words(std::string_view text) : m_rest(Trimmed(text)) { }

    bool AtEnd() const { return m_rest.empty(); }
    std::string_view Rest() const { return m_rest; }

    std::optional<FigurePath> TakeName()
    {
        auto name = FigurePath::Take(m_rest);
        m_rest = Trimmed(m_rest);
        return name;
    }

    /// Takes a word of letters if it stands next, in letters of either case.
    bool TakeWord(std::string_view word)
    {
        return EqualsIgnoringCase(NextWord(), word) && TakeText(m_rest.substr(0, word.size()));
    }

    /// Takes a text if it stands next, whatever follows.
    bool TakeText(std::string_view text)
    {
        if (!m_rest.starts_with(text))
            return false;
        m_rest = Trimmed(m_rest.substr(text.size()));
        return true;
    }

    std::optional<LimitNumber> TakeNumber()
    {
        LimitNumber number;
        const char* const end = m_rest.data() + m_rest.size();
        const auto [stop, error] = std::from_chars(m_rest.data(), end, number.value);
        if (error != std::errc() || !std::isfinite(number.value) || !IsWordEnd(stop, end))
            return std::nullopt;
        std::int64_t whole = 0;
        const auto [wholeStop, wholeError] = std::from_chars(m_rest.data(), stop, whole);
        if (wholeError == std::errc() && wholeStop == stop)
            number.whole = whole;
        m_rest = Trimmed(m_rest.substr(static_cast<std::size_t>(stop - m_rest.data())));
        return number;
    }

    /// A text in double quotes, which it cannot hold.
    std::optional<std::string> TakeQuoted()
    {
        const std::size_t end = m_rest.starts_with('"') ? m_rest.find('"', 1) : m_rest.npos;
        if (end == m_rest.npos)
            return std::nullopt;
        std::string text(m_rest.substr(1, end - 1));
        m_rest = Trimmed(m_rest.substr(end + 1));
        return text;
    }

private:
    static bool IsWordEnd(const char* at, const char* end)
    {
        return at == end || *at == ' ' || *at == '\t';
    }

    std::string_view NextWord() const
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), [](char character) {
            return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
        });
        return m_rest.substr(0, static_cast<std::size_t>(end - m_rest.begin()));
    }

    std::string_view m_rest;
};

std::string KindList()
{
    std::string kinds;
    for (const KindFigures& figures : AllFigures())
        kinds.append(kinds.empty() ? "" : ", ").append(figures.kind);
    return kinds;
}

/// "family=6"; "G6" is the same.
std::string ParseFamily(std::string_view text, std::optional<int>& family)
{
    constexpr std::string_view kFamily = "family=";
    if (!text.starts_with(kFamily))
        return "Only family=NUMBER may stand behind the kind";
    text.remove_prefix(kFamily.size());
    if (text.starts_with('G') || text.starts_with('g'))
        text.remove_prefix(1);
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || stop != text.data() + text.size() || number < 0)
        return "The family of a scanner is a whole number";
    family = number;
    return {};
}

} // namespace

std::string_view WithoutComment(std::string_view line)
{
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            isQuoted = !isQuoted;
        else if (line[i] == '#' && !isQuoted)
            line = line.substr(0, i);
    }
    return Trimmed(line);
}

std::string ParseSection(std::string_view line, LimitsSection& section)
{
    if (!line.starts_with('[') || !line.ends_with(']'))
        return "A section is written [KIND] or [KIND family=NUMBER]";
    const std::string_view inside = Trimmed(line.substr(1, line.size() - 2));
    const std::size_t end = std::min(inside.find_first_of(" \t"), inside.size());
    section.kind = inside.substr(0, end);
    if (!FindKindFigures(section.kind))
        return "There is no kind \"" + section.kind + "\" (kinds: " + KindList() + ")";
    const std::string_view family = Trimmed(inside.substr(end));
    return family.empty() ? std::string() : ParseFamily(family, section.family);
}

namespace {

struct Sign {
    std::string_view text;
    Relation relation;
};
/// Longer ones first.
constexpr Sign kSigns[] = {{"<=", Relation::AtMost}, {">=", Relation::AtLeast},
    {"<", Relation::Below}, {">", Relation::Above}, {"=", Relation::Equal}};

std::string ParseEmptiness(Words& words, Limit& limit)
{
    limit.relation = words.TakeWord("not") ? Relation::NotEmpty : Relation::Empty;
    return words.TakeWord("empty") ? "" : "Behind \"is\" stands \"empty\" or \"not empty\"";
}

std::string ParseRange(Words& words, Limit& limit)
{
    constexpr const char* kRule = "A range is written: between NUMBER and NUMBER";
    limit.relation = Relation::Between;
    const auto lower = words.TakeNumber();
    if (!lower || !words.TakeWord("and"))
        return kRule;
    const auto upper = words.TakeNumber();
    if (!upper)
        return kRule;
    limit.number = *lower;
    limit.upper = *upper;
    return lower->value <= upper->value ? "" : "Between: the first number is above the second";
}

std::string ParseComparison(Words& words, Limit& limit)
{
    const auto sign = std::ranges::find_if(
        kSigns, [&words](const Sign& row) { return words.TakeText(row.text); });
    if (sign == std::end(kSigns))
        return "Behind the name stands one of <=, <, >=, >, =, between, is empty, is not empty";
    limit.relation = sign->relation;
    if (const auto number = words.TakeNumber()) {
        limit.number = *number;
        return {};
    }
    if (limit.relation != Relation::Equal)
        return "Behind " + std::string(sign->text) + " stands a number";
    limit.text = words.TakeQuoted();
    if (!limit.text && words.TakeWord("true"))
        limit.flag = true;
    else if (!limit.text && words.TakeWord("false"))
        limit.flag = false;
    return limit.text || limit.flag ? "" : "Behind = stands a number, a \"text\", true or false";
}

bool IsOfNumber(const Limit& limit)
{
    return limit.relation != Relation::Empty && limit.relation != Relation::NotEmpty && !limit.text
        && !limit.flag;
}

/// Whether a figure of a type can ever be within the limit.
std::string CheckType(const Limit& limit, FigureType type)
{
    const bool isEmptiness =
        limit.relation == Relation::Empty || limit.relation == Relation::NotEmpty;
    const std::string name = limit.figure.Text();
    if (limit.isOfCount && !IsOfNumber(limit))
        return "A count is a number";
    switch (type) {
    case FigureType::List:
        return limit.isOfCount || isEmptiness
            ? ""
            : name + " is a list: it can be empty or not, or has a count";
    case FigureType::HeaderKey:
        return {};
    case FigureType::Number:
        return !limit.isOfCount && IsOfNumber(limit) ? "" : name + " is a number";
    case FigureType::Text:
        return !limit.isOfCount && (limit.text || isEmptiness)
            ? ""
            : name + " is a text: it is limited by = \"TEXT\", is empty or is not empty";
    case FigureType::Flag:
        return limit.flag && !limit.isOfCount ? "" : name + " is true or false";
    }
    return {};
}

} // namespace

std::string ParseLimit(std::string_view line, const KindFigures& kind, Limit& limit)
{
    Words words(line);
    limit.isOptional = words.TakeWord("optional");
    auto name = words.TakeName();
    if (!name)
        return "A limit begins with the name of a figure";
    limit.figure = *std::move(name);
    const auto type = FindFigure(kind, limit.figure);
    if (!type)
        return "There is no figure " + limit.figure.Text() + " of files of kind "
            + std::string(kind.kind);
    limit.wording = words.Rest();
    limit.isOfCount = words.TakeWord("count");
    std::string fault = words.TakeWord("is") ? ParseEmptiness(words, limit)
        : words.TakeWord("between")          ? ParseRange(words, limit)
                                             : ParseComparison(words, limit);
    if (!fault.empty())
        return fault;
    if (!words.AtEnd())
        return "Nothing may follow the limit but a comment";
    return CheckType(limit, *type);
}

} // namespace vireo
