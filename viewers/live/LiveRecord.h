#pragma once

#include "platform/Log.h"
#include "scanner/ScannerValues.h"
#include "viewers/lightprofile/LightProfileRecord.h"

namespace vireo {

/// What the header of a light profile tells of a line that a scanner gave.
LightProfileRecord LiveRecord(
    const ScannerIdentity& identity, const ScannerValues& values, const CDateTime& when);

} // namespace vireo
