#include "scanner/ScannerReport.h"

#include <utility>

namespace vireo {

std::string ReportScannerFailure(const ScannerFailure& failure, ErrorReportSetup setup)
{
    setup.scannerLastError = [error = failure.libraryError] {
        return static_cast<std::uint32_t>(error);
    };
    return ReportError(setup, static_cast<std::uint32_t>(failure.error), failure.detail, {});
}

} // namespace vireo
