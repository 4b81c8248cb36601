#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// One of the oscilloscope files that a test run leaves in its folder; what it holds is told by its
/// name alone, as in "Oscil_Gray_Unadjusted_600.con".
struct OscilloscopeFolderEntry {
    std::filesystem::path path;
    bool bAdjusted = true;
    bool bColour = true;
    int iResolution = 0; ///< Dots per inch.

    /// What the user chooses by, such as "600dpi Gray Unadjusted".
    std::string Description() const;
};

/// What a file name says; nothing when it is not one of "Oscil_*.con". Letters of either case.
std::optional<OscilloscopeFolderEntry> OscilloscopeEntryFromPath(const std::filesystem::path& path);

/// The oscilloscope files of a folder, in the order of their names; empty when there are none and
/// when the folder cannot be read. Reads no file.
std::vector<OscilloscopeFolderEntry> ListOscilloscopeFolder(const std::filesystem::path& folder);

} // namespace vireo
