#pragma once

#include "cli/FolderFiles.h"
#include "platform/FileIdentity.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vireo {

/// What a folder on the command line stands for.
enum class FolderRule {
    Refused,  ///< For itself, and no command can read it.
    Files,    ///< The files in it.
    AllBelow, ///< The files in it and in every folder below it.
};

/// The files that a command line names, one after the other; folders are listed one at a time, when
/// their turn comes, so that memory does not grow with the number of files but with the longest
/// list of names in one folder.
class FileSource {
public:
    /// The arguments, files and folders in UTF-8, must outlive the source. The file that is to be
    /// written is not among those of a folder, where it may lie since the last time; as an argument
    /// it stays, to be refused.
    FileSource(const std::vector<std::string>& arguments, FolderRule rule,
        std::filesystem::path output = {})
        : m_arguments(arguments),
          m_rule(rule),
          m_output(std::move(output))
    {
    }

    struct Item {
        std::string name;    ///< As given, or FOLDER/NAME; UTF-8.
        std::string failure; ///< Why a folder of this name has no files to offer; else empty.
    };
    /// The next file, or a folder that cannot be listed; nothing after the last.
    ///
    /// The files in a folder come sorted by the bytes of their names, then its folders, in the same
    /// order, each with its files and folders. A link to a folder is followed; a folder that was
    /// entered before on behalf of the same argument is not entered again.
    std::optional<Item> Next();

    /// How many files there are; nothing when that is not known before a folder is listed.
    std::optional<std::size_t> Count() const;

private:
    bool IsOutput(const std::string& file) const;
    bool StandsForFiles(const std::string& argument) const;
    std::string EnterFolder();

    const std::vector<std::string>& m_arguments;
    FolderRule m_rule;
    std::filesystem::path m_output;
    std::size_t m_nextArgument = 0;
    FolderFiles m_files;                ///< Of the folder entered last.
    std::vector<std::string> m_folders; ///< To be entered, the next one last.
    std::set<FileIdentity> m_entered;   ///< Folders, of the present argument.
};

} // namespace vireo
