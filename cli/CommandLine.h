#pragma once

#include "cli/Choices.h"
#include "cli/WholeNumber.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vireo {

enum class Presence { Optional, Required };

/// How an option that takes a value is called: "--line N" or "-d,--directory FOLDER"; or an
/// argument: "FILE". Refusals tell the first name.
struct OptionName {
    OptionName(const char* spelling, Presence isThere = Presence::Optional);

    std::string names;
    std::string value; ///< What stands for it in the help; empty for an argument.
    Presence presence;
};

/// Why a value is refused, as it follows the option's name; empty when it is not.
using Refusal = std::string;
using TakeText = std::function<Refusal(const std::string& text)>;

/// How many names are taken.
enum class NameCount { One, Any };
using TakeNames = std::function<void(std::vector<std::string> names)>;

/// The options and arguments of one command; its help lists them in the order in which they are
/// added. An option is given once at most, a flag any number of times. Values are taken while the
/// command line is read, so that whatever they are put into must live until then.
class CommandOptions {
public:
    explicit CommandOptions(CLI::App& command) : m_command(command) { }
    CommandOptions(const CommandOptions&) = delete;
    CommandOptions& operator=(const CommandOptions&) = delete;

    /// What stands alone.
    void AddFlag(const char* names, const char* description, bool& isGiven);
    void AddFlag(const char* names, const char* description, std::function<void()> take);

    void AddText(const OptionName& option, const std::string& description, TakeText take);
    /// A word of a table, which must be static.
    template <typename Value, std::size_t Count, typename Chosen>
    void AddChoice(const OptionName& option, const std::string& description,
        const Choice<Value> (&choices)[Count], Chosen& chosen,
        LetterCase letters = LetterCase::Ignored)
    {
        AddText(option, description, [&choices, &chosen, letters](const std::string& text) {
            return Choose(choices, text, chosen, letters);
        });
    }

    /// The decimal digits of a number in a range that `number`, or what it may hold, has room for.
    template <typename Number>
    void AddNumber(const OptionName& option, const std::string& description,
        const NumberRange& range, Number& number)
    {
        AddWholeNumber(option, description, range,
            [&number](std::int64_t given) { number = static_cast<Number>(given); });
    }

    /// The name of a file or folder, in UTF-8.
    void AddName(const OptionName& option, const std::string& description, std::string& name);
    void AddName(
        const OptionName& option, const std::string& description, std::filesystem::path& path);
    /// Names of files and folders, one behind the other.
    void AddNames(
        const OptionName& option, const std::string& description, NameCount count, TakeNames take);

    /// Has a value of `option` refused in the end, when all are known. One check a command.
    void AddCheck(const std::string& option, std::function<Refusal()> check);

    /// What the help says below the options.
    void SetFooter(const std::string& text);

private:
    void AddWholeNumber(const OptionName& option, const std::string& description,
        const NumberRange& range, std::function<void(std::int64_t)> take);

    CLI::App& m_command;
};

/// What a program's help tells of it.
struct ProgramText {
    const char* name;
    const char* description;
    const char* version = ""; ///< What --version prints behind the name; empty: no such option.
    const char* footer = "";
};

/// The command line of a program: the name of one of its commands, with the command's options.
class CommandLine {
public:
    explicit CommandLine(const ProgramText& program);
    ~CommandLine();

    /// Adds a command. What is returned lives as long as the command line.
    CommandOptions& AddCommand(const char* name, const char* summary);

    /// Reads the arguments (UTF-8, without the program's name). Nothing when the command is to be
    /// run; else the exit status: help and version are printed on standard output, bad usage is
    /// told in one line on standard error.
    std::optional<int> Read(const std::vector<std::string>& arguments);

    /// The command that has been read: 0 for the one that was added first.
    std::size_t ChosenCommand() const;

private:
    std::unique_ptr<CLI::App> m_program;
    std::deque<CommandOptions> m_commands;
};

} // namespace vireo
