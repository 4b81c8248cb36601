#pragma once

#include "app/FileKind.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace vireo {

struct Subject;

/// JSON objects whose members stay in the order in which they were added. A number that is not
/// finite is written as null.
using Json = nlohmann::ordered_json;

/// An object with the members that every object begins with.
Json BeginObject(const Subject& subject);

/// A text of a file (Windows-1252) as a JSON string.
Json FileText(std::string_view windows1252);

/// The object on one line of UTF-8. Names that are not UTF-8 have the offending bytes replaced by
/// U+FFFD.
std::string ToLine(const Json& object);

} // namespace vireo
