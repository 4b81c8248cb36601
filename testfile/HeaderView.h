#pragma once

#include "testfile/TestFileHeader.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// A line of a header as people read it; texts are Windows-1252.
struct HeaderRow {
    std::string key;
    std::string value;   ///< As it stands in the file, without the blanks around it.
    std::string meaning; ///< What the key stands for, with its unit; empty for an unknown key.
};

/// A header's tags and keys in the order of the file. Where a key stands more than once, its
/// meaning is that of the first, which is the one that counts.
std::vector<HeaderRow> ListHeaderRows(const TestFileHeader& header);

/// No more rows than this are listed; the text of a damaged file may hold any number.
inline constexpr std::size_t kMostHeaderRows = 1000;

/// What the header command of the viewers shows of a file.
struct HeaderView {
    std::string text; ///< The whole header as it stands in the file, Windows-1252.
    std::vector<HeaderRow> rows;
    std::string refusal; ///< Why there is nothing to show; empty when there is.
};

/// Reads the header of a file whose first 100 bytes name a section. Any other file is an old one:
/// the refusal then says so. The keys of a star test and of a tonal resolution file, which tell no
/// data offset, end where their data begin, or with the file.
HeaderView ReadHeaderView(const std::filesystem::path& file);

} // namespace vireo
