#pragma once

#include <string>
#include <string_view>

namespace vireo {

/// UTF-8 to the UTF-16 of the system's functions, and back. What is not valid becomes U+FFFD.
std::wstring WideFromUtf8(std::string_view utf8);
std::string Utf8FromWide(std::wstring_view wide);

} // namespace vireo
