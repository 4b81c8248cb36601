#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace vireo {

class WorkProgress;

/// What a page is written anew as.
struct TifConversion {
    std::filesystem::path input;
    std::uint32_t page = 1; ///< Counted from 1.
    std::filesystem::path output;
    /// By its code in files; nothing: the page's own, and its predictor unless one is given.
    std::optional<std::uint16_t> compression;
    std::optional<std::uint16_t> predictor; ///< 1 or 2; nothing: 1.
    /// The name of an ICC profile, see CFileIccProfileReader; empty: the page's own, if it has one.
    std::filesystem::path profile;
};

/// Writes a page of a TIFF as a little-endian TIFF of one page with the same pixels, resolution and
/// description, row by row. The output is complete or untouched, and never the input or the
/// profile. An empty text when it is done, else the reason why not, in one sentence. Who waits for
/// it may follow by `progress`, in rows, and cancel: then there is no output, and no reason.
std::string ConvertTif(const TifConversion& conversion, WorkProgress* progress = nullptr);

} // namespace vireo
