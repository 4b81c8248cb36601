#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Validator;
} // namespace CLI

namespace vireo {

/// What the programs that are run from a shell have in common.

inline constexpr int kExitDone = 0;
inline constexpr int kExitFileFailed = 1;
inline constexpr int kExitBadUsage = 2;

/// A text on one line: control characters become blanks.
std::string OnOneLine(std::string_view text);

/// Prints one line "program: text" on standard error.
void PrintError(std::string_view program, std::string_view text);

/// Adds a command to a program.
CLI::App* AddCommand(CLI::App& app, const char* name, const char* summary);

/// Reads a command line: one of the app's commands with its options. Nothing when the command is to
/// be run; else the exit status: help and version are printed on standard output, bad usage is
/// told in one line on standard error.
///
/// Behind "--", and in brackets like "[a,b]", which the library takes for a list of two, arguments
/// are marked as plain texts: what takes a file's name must put it through WithoutGuard.
std::optional<int> ReadCommandLine(CLI::App& app, const std::vector<std::string>& arguments);

/// A name as it was given, without the mark of a plain text.
std::string WithoutGuard(std::string argument);

/// Accepts the decimal digits of a number in a range, both ends included.
CLI::Validator WholeNumber(
    std::int64_t lowest, std::int64_t highest = std::numeric_limits<std::int64_t>::max());

/// A picture's size in pixels.
struct PictureSize {
    int width = 0;
    int height = 0;
};
/// The longest side of a picture. A painter's coordinates end at 32767; 16 Ki squared is a picture
/// of 1 GiB.
inline constexpr int kLongestSide = 16384;
/// A size such as "1600x500"; nothing for anything else or with a side out of range.
std::optional<PictureSize> ParseSize(std::string_view text);
/// What a refused size is told.
inline constexpr const char* kSizeRule = "must be WIDTHxHEIGHT, each from 1 to 16384";

} // namespace vireo
