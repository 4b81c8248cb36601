#pragma once

#include <string_view>

namespace vireo {

/// The numbers of the string resources.
namespace StringId {
inline constexpr int kAboutCommand = 654;
inline constexpr int kRelease = 655;
inline constexpr int kVersion = 679;
inline constexpr int kBuild = 680;
inline constexpr int kApplicationTitle = 57344;
} // namespace StringId

/// A text of the string table, Windows-1252; empty when there is no text of that number. (The
/// system's own name for this is a macro on Windows.)
std::string_view LoadStringResource(int number);

} // namespace vireo
