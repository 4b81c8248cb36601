#pragma once

#include <filesystem>
#include <string_view>

namespace vireo {

/// How an unpacked dump is shown.
struct DumpView {
    std::string_view viewer; ///< Class name of the dialog.
    std::filesystem::path input;
};

/// The oscilloscope on the dump's folder, if that has files for it; else the light profile viewer
/// on the first light profile of the dump; else the oscilloscope, which says that there is nothing
/// to show.
DumpView ViewOfUnpackedDump(const std::filesystem::path& dump);

} // namespace vireo
