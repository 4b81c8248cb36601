#pragma once

#include "tests/cli/ProgramRun.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace vireo {

/// What a folder holds: the files in it and in its folders by their names from there on.
using FolderContent = std::map<std::string, std::string>;
FolderContent ContentOf(const std::filesystem::path& folder);
/// Empties a folder and puts files into it.
void Refill(const std::filesystem::path& folder, const FolderContent& content);

/// Whether a name is that of a file which has not been renamed to its target.
bool IsTemporary(const std::string& name);

/// A sample's bytes.
std::string Sample(const std::string& name);

/// How often a test with chance in it repeats what it does; VIREO_FAULT_ROUNDS multiplies it.
int Rounds(int usual);

} // namespace vireo
