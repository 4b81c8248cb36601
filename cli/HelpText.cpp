#include "cli/HelpText.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace vireo {

namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kNames = 24; ///< Columns of names, the indent and two blanks behind included.

std::size_t Columns(std::string_view utf8)
{
    const auto isFirstByte = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    return static_cast<std::size_t>(std::ranges::count_if(utf8, isFirstByte));
}

/// A text in lines of at most `width` characters (code points), broken between words. Line ends in
/// the text stay. Every line but the first is indented by `indent` blanks, which count.
std::string Wrapped(std::string_view text, std::size_t indent, std::size_t width)
{
    std::string lines;
    std::size_t column = indent;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
        const std::string_view word = text.substr(0, end);
        const bool isLineEnd = end < text.size() && text[end] == '\n';
        text.remove_prefix(std::min(end + 1, text.size()));
        if (column > indent && column + 1 + Columns(word) > width) {
            lines.append(1, '\n').append(indent, ' ');
            column = indent;
        } else if (column > indent) {
            lines += ' ';
            ++column;
        }
        lines += word;
        column += Columns(word);
        if (isLineEnd) {
            lines.append(1, '\n').append(indent, ' ');
            column = indent;
        }
    }
    return lines;
}

/// One entry of a list: names to the left, what they mean to the right of them or, behind long
/// ones, below.
std::string Entry(const std::string& names, const std::string& description)
{
    std::string entry = "  " + names;
    const bool fits = Columns(entry) + 2 <= kNames;
    entry.append(fits ? kNames - Columns(entry) : 0, ' ');
    if (!fits)
        entry.append(1, '\n').append(kNames, ' ');
    return entry + Wrapped(description, kNames, kWidth) + '\n';
}

/// As "-o, --output OUT", or "    --line N".
std::string NamesOf(const CLI::Option& option)
{
    if (option.get_positional())
        return option.get_name(true);
    std::string names;
    for (const std::string& name : option.get_snames())
        names += "-" + name + (option.get_lnames().empty() ? "" : ", ");
    if (names.empty())
        names = "    ";
    for (const std::string& name : option.get_lnames())
        names += "--" + name;
    const bool takesValue = option.get_items_expected_max() > 0 && option.get_type_size_max() > 0;
    return takesValue ? names + ' ' + option.get_type_name() : names;
}

/// The options or the positional arguments, below their title; empty when there are none.
std::string OptionsOf(const CLI::App& app, bool positional, const std::string& title)
{
    std::string list;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_positional() == positional)
            list += Entry(NamesOf(*option), option->get_description());
    }
    return list.empty() ? list : '\n' + title + ":\n" + list;
}

std::string CommandsOf(const CLI::App& app)
{
    std::string list;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        list += Entry(command->get_name(), command->get_description());
    return list.empty() ? list : "\nCommands:\n" + list;
}

/// What follows the program's name: its commands, or the arguments and required options.
std::string UsageOf(const CLI::App& app)
{
    if (!app.get_subcommands([](const CLI::App*) { return true; }).empty())
        return " COMMAND [options] ...";
    std::string usage = " [options]";
    std::string required;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_positional())
            usage += ' ' + option->get_name(true) + (option->get_expected_max() > 1 ? "..." : "");
        else if (option->get_required())
            required += (option->get_snames().empty() ? " --" + option->get_lnames()[0]
                                                      : " -" + option->get_snames()[0])
                + ' ' + option->get_type_name();
    }
    return usage + required;
}

class HelpText : public CLI::FormatterBase {
public:
    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode) const override
    {
        const std::string program = name.empty() ? app->get_name() : name;
        std::string help = Wrapped("Usage: " + program + UsageOf(*app), 4, kWidth) + "\n\n"
            + Wrapped(app->get_description(), 0, kWidth) + '\n' + CommandsOf(*app)
            + OptionsOf(*app, true, "Arguments") + OptionsOf(*app, false, "Options");
        if (!app->get_footer().empty())
            help += '\n' + Wrapped(app->get_footer(), 0, kWidth) + '\n';
        return help;
    }
};

} // namespace

std::shared_ptr<CLI::FormatterBase> MakeHelpText()
{
    return std::make_shared<HelpText>();
}

} // namespace vireo
