#include "platform/FilePattern.h"

#include "platform/Path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace vireo {

namespace {

char Lower(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Bytes of the first character of a text that is not empty.
std::size_t CharacterLength(std::string_view text)
{
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        ++length;
    return length;
}

} // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern)
{
    // Where to go on when what follows the last star does not match: one character further.
    std::string_view behindStar;
    std::string_view nameAtStar;
    bool hasStar = false;
    while (!name.empty()) {
        if (!pattern.empty() && pattern.front() == '*') {
            pattern.remove_prefix(1);
            behindStar = pattern;
            nameAtStar = name;
            hasStar = true;
        } else if (!pattern.empty() && pattern.front() == '?') {
            pattern.remove_prefix(1);
            name.remove_prefix(CharacterLength(name));
        } else if (!pattern.empty() && Lower(pattern.front()) == Lower(name.front())) {
            pattern.remove_prefix(1);
            name.remove_prefix(1);
        } else if (hasStar) {
            nameAtStar.remove_prefix(CharacterLength(nameAtStar));
            name = nameAtStar;
            pattern = behindStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*') == std::string_view::npos;
}

namespace {

std::vector<std::string> FilesOf(std::string_view argument)
{
    const std::size_t separator = argument.find_last_of("/\\:");
    const std::size_t nameAt = separator == std::string_view::npos ? 0 : separator + 1;
    const std::string folder(argument.substr(0, nameAt));
    std::vector<std::string> files;
    std::error_code error;
    std::filesystem::directory_iterator entry(PathFromUtf8(folder.empty() ? "." : folder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        const std::string name = Utf8FromPath(entry->path().filename());
        if (MatchesPattern(name, argument.substr(nameAt)) && !entry->is_directory(unknown))
            files.push_back(folder + name);
    }
    std::ranges::sort(files);
    return files;
}

} // namespace

std::vector<std::string> WithPatternsExpanded(const std::vector<std::string>& arguments)
{
    std::vector<std::string> expanded;
    for (const std::string& argument : arguments) {
        std::vector<std::string> files;
        if (!argument.starts_with('-') && argument.find_first_of("*?") != std::string::npos)
            files = FilesOf(argument);
        if (files.empty())
            files.push_back(argument);
        expanded.insert(expanded.end(), files.begin(), files.end());
    }
    return expanded;
}

} // namespace vireo
