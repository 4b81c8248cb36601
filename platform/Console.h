#pragma once

#include <string>
#include <vector>

namespace vireo {

/// What a program that is run from a shell needs of the system.

/// The program's arguments behind its name, in UTF-8; taken from main's where these are complete,
/// else from the system.
std::vector<std::string> ProgramArguments(int argc, const char* const* argv);

/// Lets standard output pass on bytes as they are, and a console show them as UTF-8.
void SetUpStandardOutput();

/// Whether somebody reads standard error while the program runs.
bool StandardErrorIsTerminal();

} // namespace vireo
