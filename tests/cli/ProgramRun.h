#pragma once

#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// What a run of a program left behind.
struct ProgramRun {
    int exitStatus = -1; ///< -1: it crashed or did not end.
    std::string output;
    std::string error;

    /// The lines of the output, each of which must be a JSON object.
    std::vector<nlohmann::ordered_json> Objects() const;
    /// The lines of standard error.
    std::vector<std::string> Errors() const;
};

/// Runs a program and waits for its end.
ProgramRun RunCli(const std::vector<std::string>& arguments);
/// The one object that vireo-cli prints when all goes well; null, with a failure, when it does not.
nlohmann::ordered_json ObjectOf(const std::vector<std::string>& arguments);
/// What vireo-cli says on standard error when it fails for a file: one line, and prints nothing.
std::string RefusalOf(const std::vector<std::string>& arguments);
ProgramRun RunBench(const std::vector<std::string>& arguments);
ProgramRun RunTool(const std::string& program, const std::vector<std::string>& arguments);

/// Whether a program of another package is there.
bool HasTool(const std::string& program);

/// The names of an object's members in their order.
std::vector<std::string> KeysOf(const nlohmann::ordered_json& object);

/// A path as an argument.
std::string Text(const std::filesystem::path& path);

} // namespace vireo
