#pragma once

#include "testfile/TestFileHeader.h"

#include <array>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vireo {

/// The value of a common key: an integer or code, a truth value, three integers, or a text in
/// Windows-1252.
using HeaderKeyValue = std::variant<int, bool, std::array<int, 3>, std::string>;

/// A common key that a header holds.
struct HeaderKey {
    std::string_view name; ///< As it stands in the file, without its '='. Of static lifetime.
    HeaderKeyValue value;  ///< As the key's reader of TestFileHeader gives it.
};

/// Every common key that is present, always in the same order whatever the order in the file. A key
/// counts as present even where its reader fails; its value is then 0 (false, empty).
std::vector<HeaderKey> ListHeaderKeys(const TestFileHeader& header);

/// Whether ListHeaderKeys can give a key of this name.
bool IsHeaderKeyName(std::string_view name);

} // namespace vireo
