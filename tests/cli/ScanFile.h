#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vireo {

/// A text header as a test program would type it: the tag, the data pointer and these lines.
std::string HeaderWith(const std::string& tag, const std::string& lines);

/// An oscilloscope file written by hand, byte by byte, and what it holds.
struct ScanFile {
    std::string tag = "[Oscilloscope]";
    std::vector<int> cameras{30, 20, 50};
    int lines = 1;
    bool isColor = true; ///< Triplets; else one gray plane.
    std::string scannerName = "Bench 7";
    std::string moreLines; ///< Further lines of the header.

    int Width() const;
    /// The sample of a plane (0 red to 2 blue; a gray file has plane 1).
    int Sample(int plane, int line, int pixel) const;
    std::string Header() const;
    std::string Bytes() const;
};

} // namespace vireo
