#pragma once

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace vireo {

/// The bytes of a packed dump, put together line by line as the format tells.
struct DumpFile {
    std::vector<std::pair<std::string, std::string>> members; ///< Names and contents.

    std::string Directory() const
    {
        std::string lines;
        for (const auto& [name, content] : members)
            lines += name + "=" + std::to_string(content.size()) + "\n";
        return lines;
    }
    /// Header and data; `directory` instead of the true one.
    std::string Bytes(const std::string& directory) const
    {
        char start[64] = {};
        const std::size_t offset = 9 + 23 + directory.size();
        std::snprintf(
            start, sizeof start, "[Kitbag]\nDataPointer=%10d\n", static_cast<int>(offset));
        std::string bytes = start + directory;
        for (const auto& member : members)
            bytes += member.second;
        return bytes;
    }
    std::string Bytes() const { return Bytes(Directory()); }
};

} // namespace vireo
