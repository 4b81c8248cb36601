#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// The text of one INI-style settings file, with the rules that PrivateProfile describes. Lines
/// end with "\n", "\r\n" or "\r". What is not touched by a change stays as it is, byte for byte.
class ProfileText {
public:
    ProfileText() = default;
    explicit ProfileText(std::string text) : m_text(std::move(text)) { }

    const std::string& Text() const { return m_text; }

    /// The value of a key without blanks and quotes around it; nothing when the section or the key
    /// is missing.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

    /// A key with its value, both without blanks around them and the value without its quotes.
    struct Entry {
        std::string_view key;
        std::string_view value;
    };
    /// All keys of a section in the order of the text, for readers of many keys: the first of a
    /// name is the one that counts. Nothing when the section is missing.
    std::optional<std::vector<Entry>> Entries(std::string_view section) const;

    /// Sets a key, adding section and key when they are missing. False, and no change, for names
    /// that would not be found again, such as a key with a '='. Line ends in the value become
    /// blanks.
    bool Set(std::string_view section, std::string_view key, std::string_view value);

    /// Removes the first key of the name, or with no key the first section of the name; whether
    /// there was one.
    bool Remove(std::string_view section, std::optional<std::string_view> key);

private:
    /// A piece of the text.
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    enum class LineKind { Section, Key, Blank, Other };
    /// One line; name and value have no blanks around them, but their quotes.
    struct Line {
        LineKind kind = LineKind::Blank;
        Range whole; ///< With its line end.
        std::string_view name;
        std::string_view value;
        std::size_t valueBegin = 0; ///< Where the value stands, or would stand when it is empty.
    };
    /// Where a section's lines are: behind its head, up to the next section.
    struct Section {
        Range whole; ///< With its head.
        std::size_t linesBegin = 0;
        std::size_t insertAt = 0; ///< Behind its last line that is not blank.
    };

    Line LineAt(std::size_t begin) const;
    std::optional<Section> FindSection(std::string_view name) const;
    std::optional<Line> FindKey(const Section& section, std::string_view name) const;
    std::string_view LineEnd() const;
    void InsertLine(std::size_t position, std::string line);

    std::string m_text;
};

} // namespace vireo
