#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// Whether a pattern stands for a file's name, both in UTF-8: '*' is any characters, '?' is one,
/// and ASCII letters may be in either case.
bool MatchesPattern(std::string_view name, std::string_view pattern);

/// A program's arguments, with each that has '*' or '?' in its last part replaced by the files that
/// it stands for, sorted by their bytes. It stays as it is where there are none, so that somebody
/// says what is missing; options stay too. For systems whose shells leave this to the programs.
std::vector<std::string> WithPatternsExpanded(const std::vector<std::string>& arguments);

} // namespace vireo
