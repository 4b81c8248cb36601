// A small scanner library, as tests load it at run time: a black-and-white scanner of two cameras
// with 100 and 150 pixels. VIREO_TEST_FAULT chooses what is wrong with it.

#include "scanner/VireoScanner.h"

#include <algorithm>
#include <iterator>

#ifdef _WIN32
#define VIREO_EXPORT extern "C" __declspec(dllexport)
#else
#define VIREO_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

enum Fault { kNone, kWithoutEntry, kOtherVersion, kNoWidth, kHugeLine, kNoPixels, kBadStatus };
constexpr Fault kFault = static_cast<Fault>(VIREO_TEST_FAULT);

constexpr unsigned int kLibraryError = 2;
constexpr unsigned int kPaperJam = 850;
constexpr unsigned int kNotSupported = 830;
constexpr int kCameras = 2;
constexpr int kPixels[kCameras] = {100, 150};

struct State {
    int lines = 0;
    int stitch = 3;
    int gain[kCameras] = {128, 128};
    unsigned int lastError = 0;
};
State state;

} // namespace

VIREO_EXPORT int VireoScanner_InterfaceVersion()
{
    return VIREO_SCANNER_INTERFACE_VERSION + (kFault == kOtherVersion ? 1 : 0);
}

VIREO_EXPORT unsigned int VireoScanner_Open()
{
    state = {};
    return 0;
}

VIREO_EXPORT void VireoScanner_Close() { }

VIREO_EXPORT unsigned int VireoScanner_GetIdentity(VireoScannerIdentity* identity)
{
    // Neither text is ended by a zero byte.
    std::fill(std::begin(identity->name), std::end(identity->name), 'N');
    std::fill(std::begin(identity->id), std::end(identity->id), '7');
    identity->family = 7;
    identity->generation = 5;
    identity->cameras = kCameras;
    std::copy(std::begin(kPixels), std::end(kPixels), identity->camera_pixels);
    identity->width = kFault == kNoWidth ? 0 : 500;
    if (kFault == kHugeLine)
        std::fill_n(identity->camera_pixels, kCameras, 2147483647);
    if (kFault == kNoPixels)
        identity->cameras = 3;
    return 0;
}

VIREO_EXPORT unsigned int VireoScanner_GetPaperStatus(int* status)
{
    *status = kFault == kBadStatus ? 7 : 1;
    return 0;
}

VIREO_EXPORT unsigned int VireoScanner_AcquireLine(
    unsigned char* const planes[VIREO_SCANNER_PLANES], unsigned int pixels)
{
    // Every 1000 lines the paper jams, until the scanner is opened anew.
    if (state.lines == 1000) {
        state.lastError = kPaperJam;
        return kLibraryError;
    }
    const int boundary = kPixels[0] + state.stitch;
    for (unsigned int i = 0; i < pixels; ++i) {
        const int camera = static_cast<int>(i) < boundary ? 0 : 1;
        planes[0][i] = static_cast<unsigned char>(std::min(state.gain[camera] + 10 * camera, 255));
    }
    ++state.lines;
    return 0;
}

VIREO_EXPORT unsigned int VireoScanner_GetRange(
    int setting, int* lowest, int* highest, int* settable)
{
    *lowest = setting == VIREO_SCANNER_STITCH ? -20 : 0;
    *highest = setting == VIREO_SCANNER_STITCH ? 20 : 255;
    *settable = 1;
    return setting == VIREO_SCANNER_STITCH || setting == VIREO_SCANNER_GAIN ? 0 : kNotSupported;
}

VIREO_EXPORT unsigned int VireoScanner_GetStitch(int, int* value)
{
    *value = state.stitch;
    return 0;
}

VIREO_EXPORT unsigned int VireoScanner_SetStitch(int, int value)
{
    if (value < -20 || value > 20)
        return 986;
    state.stitch = value;
    return 0;
}

VIREO_EXPORT unsigned int VireoScanner_GetGain(int camera, int, int* value)
{
    *value = state.gain[camera];
    return 0;
}

VIREO_EXPORT unsigned int VireoScanner_SetGain(int camera, int, int value)
{
    if (value < 0 || value > 255)
        return 985;
    state.gain[camera] = value;
    return 0;
}

VIREO_EXPORT unsigned int VireoScanner_GetOffset(int, int, int*)
{
    return kNotSupported;
}

VIREO_EXPORT unsigned int VireoScanner_SetOffset(int, int, int)
{
    return kNotSupported;
}

VIREO_EXPORT unsigned int VireoScanner_GetCorrection(int*)
{
    return kNotSupported;
}

VIREO_EXPORT unsigned int VireoScanner_SetCorrection(int)
{
    return kNotSupported;
}

#if VIREO_TEST_FAULT != 1
VIREO_EXPORT unsigned int VireoScanner_LastError()
{
    return state.lastError;
}
#endif
