/* The interface between Vireo and a scanner library: plain C, so that any compiler can make one.
 *
 * A library exports all functions below. docs/scanner-library.md tells where Vireo looks for it and
 * what it asks when. Every function that answers with an error gives 0 when all went well, a code
 * of Vireo's table of errors (`vireo-cli error CODE` shows its text), or 2, after which
 * VireoScanner_LastError gives the code. `int` has 32 bits.
 *
 * Functions are called by one thread at a time, between VireoScanner_Open and VireoScanner_Close,
 * VireoScanner_InterfaceVersion excepted. */

#ifndef VIREO_SCANNER_H
#define VIREO_SCANNER_H

#ifdef __cplusplus
extern "C" {
#endif

/* What VireoScanner_InterfaceVersion gives in a library made with this header. */
#define VIREO_SCANNER_INTERFACE_VERSION 1

#define VIREO_SCANNER_TEXT_BYTES 64
#define VIREO_SCANNER_CAMERAS 8
#define VIREO_SCANNER_PLANES 3

/* Settings, for VireoScanner_GetRange. */
#define VIREO_SCANNER_STITCH 0
#define VIREO_SCANNER_GAIN 1
#define VIREO_SCANNER_OFFSET 2
#define VIREO_SCANNER_CORRECTION 3

/* What a scanner tells about itself; Vireo hands it over filled with zeros. */
typedef struct VireoScannerIdentity {
    char name[VIREO_SCANNER_TEXT_BYTES]; /* Windows-1252, ended by a zero byte, as the id. */
    char id[VIREO_SCANNER_TEXT_BYTES];   /* Serial number; may be empty. */
    int family;
    int generation;
    int colour;                               /* 1: planes red, green, blue; 0: one plane. */
    int cameras;                              /* 1 to 8. */
    int camera_pixels[VIREO_SCANNER_CAMERAS]; /* Pixels of each camera in a line, A first. */
    int width;                                /* Scan width in 1/1200 inch. */
} VireoScannerIdentity;

int VireoScanner_InterfaceVersion(void);

unsigned int VireoScanner_Open(void);
void VireoScanner_Close(void);
unsigned int VireoScanner_GetIdentity(VireoScannerIdentity* identity);

/* 0: no paper; 1: paper is loaded. Answers without waiting: it is asked for every line. */
unsigned int VireoScanner_GetPaperStatus(int* status);

/* Waits for the next line and writes `pixels` bytes to each of the planes that the scanner has:
 * red, green and blue, or the first only. `pixels` is the sum of the cameras' pixels. Gives an
 * error when no line has come within two seconds: a window that closes waits for the answer. */
unsigned int VireoScanner_AcquireLine(
    unsigned char* const planes[VIREO_SCANNER_PLANES], unsigned int pixels);

/* What a setting's values can be. `settable` is 0 when they can only be read. A setting that the
 * scanner does not have is error 830. */
unsigned int VireoScanner_GetRange(int setting, int* lowest, int* highest, int* settable);

/* The stitch value of the boundary right of a camera, in pixels; `camera` counts from 0. */
unsigned int VireoScanner_GetStitch(int camera, int* value);
unsigned int VireoScanner_SetStitch(int camera, int value);

/* Gain and offset of a camera's plane, both counted from 0. */
unsigned int VireoScanner_GetGain(int camera, int plane, int* value);
unsigned int VireoScanner_SetGain(int camera, int plane, int value);
unsigned int VireoScanner_GetOffset(int camera, int plane, int* value);
unsigned int VireoScanner_SetOffset(int camera, int plane, int value);

/* 1: lines are corrected for the light profile; 0: lines as the cameras see them. */
unsigned int VireoScanner_GetCorrection(int* value);
unsigned int VireoScanner_SetCorrection(int value);

/* The code of the last failure, for functions that answered 2. */
unsigned int VireoScanner_LastError(void);

#ifdef __cplusplus
}
#endif

#endif
