#pragma once

#include "platform/PositionalFile.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// The names in a folder, sorted by their bytes. They lie one behind the other in one text, so that
/// a hundred thousand of them take little more memory than their letters.
class NameList {
public:
    void Clear();
    void Add(std::string_view name);
    void Sort();
    std::size_t Size() const { return m_ranges.size(); }
    std::string_view At(std::size_t position) const;

private:
    struct Range {
        std::size_t start;
        std::size_t length;
    };
    std::string m_text;
    std::vector<Range> m_ranges;
};

/// The content of one folder: its files, one after the other, and its folders. What is neither
/// file nor folder, a link that leads nowhere too, counts as a file. What another program is
/// writing beside its target, or has left there when it was killed, is not in it.
class FolderFiles {
public:
    /// Lists a folder, given in UTF-8. When that fails what could be listed is there.
    FileStatus List(const std::string& folder);
    /// The next file as FOLDER/NAME; nothing after the last.
    std::optional<std::string> Next();
    /// Puts the folders as FOLDER/NAME behind `folders`, the first one last, and forgets them.
    void TakeFolders(std::vector<std::string>& folders);

private:
    std::string m_prefix; ///< The folder and its separator.
    NameList m_names;
    NameList m_folders;
    std::size_t m_next = 0;
};

} // namespace vireo
