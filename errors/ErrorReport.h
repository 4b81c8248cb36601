#pragma once

#include "errors/ErrorTable.h"
#include "errors/ErrorTextLibrary.h"
#include "platform/Log.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace vireo {

/// How errors of scanner access and calibration are reported.
struct ErrorReportSetup {
    /// The code that stands for an error of the scanner library, which keeps the real one.
    static constexpr std::uint32_t kScannerLibraryError = 2;

    ErrorTextLibrary library = ErrorTextLibrary();
    ScannerFeed feed = ScannerFeed::Sheet; ///< Of the scanner that is connected.
    /// The scanner library's own last error; none when no such library is loaded.
    std::function<std::uint32_t()> scannerLastError = {};
    /// The file that gets a block of text for each error. Empty: "LastError.txt" beside the log.
    std::filesystem::path lastErrorFile = {};
};

/// Reports an error: in the log in one line, with its class and detail, and as a block of text in
/// the file of last errors. The text is the library's translation; else the table's; else `text`;
/// else "Unknown Error.". A library that is missing is told in a message, and the error is reported
/// all the same. Gives the text that was reported; code 0 is no error, does nothing and gives none.
std::string ReportError(const ErrorReportSetup& setup, std::uint32_t code, std::string_view detail,
    std::string_view text);

/// The block of text of one error.
std::string ErrorBlock(const CDateTime& when, std::uint32_t code, std::string_view text);

} // namespace vireo
