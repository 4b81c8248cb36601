#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <string_view>

namespace vireo {

/// Help as terminals of 80 columns show it: usage, what the program or command does, its arguments
/// and options with wrapped descriptions, its commands.
class HelpText : public CLI::FormatterBase {
public:
    std::string make_help(
        const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override;
};

/// A text in lines of at most `width` characters (code points), broken between words. Line ends in
/// the text stay. Every line but the first is indented by `indent` blanks, which count.
std::string Wrapped(std::string_view text, std::size_t indent, std::size_t width);

} // namespace vireo
