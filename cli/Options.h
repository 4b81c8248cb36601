#pragma once

#include "cli/Settings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Validator;
} // namespace CLI

namespace vireo {

/// Options and arguments that several commands share. A value that an option refuses is bad usage.
void AddFilesArgument(CLI::App& command, Settings& settings);
void AddFileArgument(CLI::App& command, Settings& settings);
/// The required file to write; `check` may refuse its name, or be null.
void AddOutputOption(CLI::App& command, Settings& settings, const char* description,
    void (*check)(Settings& settings) = nullptr);
void AddJobsOption(CLI::App& command, Settings& settings);
void AddKindOption(CLI::App& command, Settings& settings);
void AddLineOption(CLI::App& command, Settings& settings);

/// Makes plain texts of the arguments that the option library would take for something else: those
/// behind "--", which goes away, and one such as "[a,b]", which it takes for a list of two. The
/// files and the output come out as they were.
std::vector<std::string> GuardArguments(const std::vector<std::string>& arguments);

/// Accepts the decimal digits of a number in a range, both ends included.
CLI::Validator WholeNumber(std::int64_t lowest, std::int64_t highest);

/// The number of a text of decimal digits only, if it lies in the range.
std::optional<std::int64_t> ParseWholeNumber(
    std::string_view text, std::int64_t lowest, std::int64_t highest);

/// A picture's size such as "1600x500"; nothing for anything else or a size out of range.
std::optional<Settings::Size> ParseSize(std::string_view text);

} // namespace vireo
