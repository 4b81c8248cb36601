#pragma once

#include <cstdint>

namespace vireo {

/// What came of a call to a scanner: a code of the table of errors, 0 when all went well. A scanner
/// library may answer with any code of the table; those named here are the ones that Vireo gives
/// itself.
// clang-format off
enum class [[nodiscard]] ScannerError : std::uint32_t {
    Ok = 0,
    LibraryError = 2, ///< The scanner library keeps the real code: see ScannerDevice::LastError.
    NoScanner = 101,
    NoWidth = 111,
    MemoryLow = 118,
    Unknown = 119,
    UnknownStatus = 611,
    NotSupported = 830, ///< The scanner has no such setting, camera or plane.
    OffsetOutOfRange = 984,
    GainOutOfRange = 985,
    StitchOutOfRange = 986,
    UnknownScanner = 994,
    OtherScanner = 995, ///< Another scanner answers than the one that was opened before.
    NotReady = 1012,    ///< The scanner is not open.
};
// clang-format on

} // namespace vireo
