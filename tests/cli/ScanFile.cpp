#include "tests/cli/ScanFile.h"

#include <numeric>

namespace vireo {

std::string HeaderWith(const std::string& tag, const std::string& lines)
{
    constexpr std::size_t kPointerWidth = 10;
    const std::string start = tag + "\nDataPointer=";
    const std::size_t length = start.size() + kPointerWidth + 1 + lines.size();
    const std::string digits = std::to_string(length);
    return start + std::string(kPointerWidth - digits.size(), ' ') + digits + '\n' + lines;
}

int ScanFile::Width() const
{
    return std::accumulate(cameras.begin(), cameras.end(), 0);
}

int ScanFile::Sample(int plane, int line, int pixel) const
{
    return (37 * pixel + 101 * line + 59 * plane + 11) % 251;
}

std::string ScanFile::Header() const
{
    std::string text = "ScannerName=" + scannerName + "\nScanner ID=4711\n";
    text += "Firmware Revision=3\nGeneration=4\nScannerFamily=6\nColorScanner=TRUE\n";
    text += "Corrected=TRUE\nScannerWidth(1/1200)=50880\nCenterLines=-1 2 3\n";
    text += "Magnification=100 101 102\nCameraCount=" + std::to_string(cameras.size()) + '\n';
    for (std::size_t i = 0; i < cameras.size(); ++i)
        text += std::string("Camera") + static_cast<char>('A' + static_cast<int>(i))
            + "Pix=" + std::to_string(cameras[i]) + '\n';
    text += std::string("CameraUsed=All\nColor=") + (isColor ? "Red:Green:Blue" : "Gray");
    text += "\nDate=2026-03-01\nTime=13:05\n";
    return HeaderWith(tag, text + moreLines);
}

std::string ScanFile::Bytes() const
{
    std::string bytes = Header();
    for (int line = 0; line < lines; ++line) {
        for (int pixel = 0; pixel < Width(); ++pixel) {
            for (int plane = isColor ? 0 : 1; plane < (isColor ? 3 : 2); ++plane)
                bytes += static_cast<char>(Sample(plane, line, pixel));
        }
    }
    return bytes;
}

} // namespace vireo
