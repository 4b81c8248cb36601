#pragma once

#include "testfile/TestFileHeader.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vireo {

/// An oscilloscope file for a test: as its writer makes it, with the values that the test is about.
struct OscilloscopeFile {
    int color = TestFileHeader::kColorInterleaved;
    bool isCorrected = false;
    int generation = 4;
    std::vector<int> cameraPixels{200, 200, 200};
    int lines = 1;

    int LineWidth() const
    {
        int width = 0;
        for (const int pixels : cameraPixels)
            width += pixels;
        return width;
    }

    /// The value of a sample: red, green and blue differ by 10, successive lines by 1.
    static int Value(int plane, int line, int pixel)
    {
        return (100 + 10 * plane + line + pixel % 50) % 256;
    }

    std::string Bytes() const
    {
        TestFileHeader header;
        header.WriteOscilloscopeTag();
        header.WriteScannerName("Bench 7");
        header.WriteScannerID("4711");
        header.WriteGeneration(generation);
        header.WriteColorScanner(true);
        header.WriteCorrected(isCorrected);
        header.WriteCenterLines({1, 2, 3});
        header.WriteMagnification({100, 100, 100});
        header.WriteCameraCount(static_cast<int>(cameraPixels.size()));
        for (std::size_t camera = 0; camera < cameraPixels.size(); ++camera)
            header.WriteCameraPixels(static_cast<int>(camera), cameraPixels[camera]);
        header.WriteCameraUsed(TestFileHeader::kAllCameras);
        header.WriteColor(color);
        header.WriteDate("2026-03-01");
        header.WriteTime("13:05");
        header.FixUpDataOffset();
        return header.Text() + Data();
    }

private:
    std::string Data() const
    {
        std::string data;
        for (int line = 0; line < lines; ++line)
            for (int pixel = 0; pixel < LineWidth(); ++pixel)
                for (int plane = 0; plane < 3; ++plane)
                    if (plane == 1 || color == TestFileHeader::kColorInterleaved)
                        data += static_cast<char>(Value(plane, line, pixel));
        return data;
    }
};

} // namespace vireo
