#pragma once

#include "errors/ErrorReport.h"
#include "scanner/LineAcquisition.h"

#include <string>

namespace vireo {

/// Reports a failure of a scanner as every error is reported (ReportError) and gives the text. For
/// LibraryError the library's real code is reported. `setup` says where to; its scannerLastError is
/// the failure's.
std::string ReportScannerFailure(const ScannerFailure& failure, ErrorReportSetup setup = {});

} // namespace vireo
