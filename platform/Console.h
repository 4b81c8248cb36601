#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vireo {

/// What a program that is run from a shell needs of the system.

/// The program's arguments behind its name, in UTF-8; taken from main's where these are complete,
/// else from the system.
std::vector<std::string> ProgramArguments(int argc, const char* const* argv);

/// The whole command line as it was given, the program's name included, in UTF-8; nothing on
/// systems that keep its arguments only.
std::optional<std::string> WholeCommandLine();

/// Lets standard output and standard error pass on bytes as they are, and a console show them as
/// UTF-8 until the program ends. Streams that the shell has closed are not given to other files.
void SetUpStandardOutput();

/// Whether the shells of this system replace names with * and ? by the files they stand for.
bool ShellExpandsPatterns();

/// Whether somebody reads standard error while the program runs.
bool StandardErrorIsTerminal();

} // namespace vireo
