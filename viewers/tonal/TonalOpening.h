#pragma once

#include "viewers/tonal/TonalResolutionData.h"

#include <filesystem>
#include <string>

namespace vireo {

/// What opening a file in the viewer did to the file.
enum class TonalFileChange {
    None,
    Rewritten,    ///< Corrected; as it was it stands beside itself with "_Original" at its name.
    NotRewritten, ///< It should have been, but copy or file cannot be written: it is as it was.
    Deleted,      ///< It held no measurement.
    NotDeleted,
};

struct TonalOpening {
    TonalResult result = TonalResult::Ok;
    TonalFileChange change = TonalFileChange::None;
    /// Tells the user of the change or why there was none, UTF-8; empty with None.
    std::string notice;
};

/// Opens a file as the viewer does: reads it, and then
/// - a file of version 1 whose green channel had to be corrected is rewritten as corrected, once a
///   complete copy of its bytes stands beside it under its whole name with "_Original" appended;
/// - a file of the scanner "Default" is deleted.
/// Both are logged. Any other file stays untouched.
TonalOpening OpenTonalFile(const std::filesystem::path& path, TonalResolutionData& data);

} // namespace vireo
