#include "viewers/live/LiveRecord.h"

#include "platform/ProgramInfo.h"
#include "viewers/live/LiveText.h"

namespace vireo {

LightProfileRecord LiveRecord(
    const ScannerIdentity& identity, const ScannerValues& values, const CDateTime& when)
{
    const ProgramInfo program = OwnProgramInfo();
    LightProfileRecord record;
    record.programName = "Vireo";
    record.programVersion = program.productVersion;
    record.programBuild = program.privateBuild;
    record.date = FileDate(when);
    record.time = FileTime(when);
    record.scannerName = identity.name;
    record.scannerID = identity.id;
    record.generation = identity.generation;
    record.scannerFamily = identity.family;
    record.resolution = identity.Resolution();
    record.colorScanner = identity.isColour;
    record.corrected = values.ValueOf(ScannerSetting::Correction, {}).value_or(0) != 0;
    record.scannerWidth = identity.widthPer1200;
    record.cameraCount = identity.cameras;
    record.cameraPixels = identity.cameraPixels;
    record.color =
        identity.isColour ? TestFileHeader::kColorInterleaved : TestFileHeader::kColorGray;
    return record;
}

} // namespace vireo
