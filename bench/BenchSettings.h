#pragma once

#include "app/FileKind.h"
#include "cli/PictureSize.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>

namespace vireo {

inline constexpr const char* kBenchProgram = "vireo-bench";

/// Everything that the command line can say; each command fills what it has options for.
struct BenchSettings {
    std::string file; ///< As given, in UTF-8; empty where it may be left out.
    int repeat = 5;   ///< Counted runs.
    int threads = 1;  ///< 1: no helper threads; 0: as many as the viewer uses.
    FileKind kind = FileKind::Unknown;
    std::optional<PictureSize> size;
    std::optional<std::uint16_t> compression; ///< By its code in TIFF files.
    std::optional<std::uint16_t> predictor;
    std::filesystem::path output; ///< Empty: a temporary file.
    std::uint32_t page = 1;       ///< Of a TIFF file, counted from 1.

    /// The threads that work may be divided among.
    unsigned Threads() const
    {
        return threads > 0 ? static_cast<unsigned>(threads)
                           : std::max(std::thread::hardware_concurrency(), 1U);
    }
};

} // namespace vireo
