#pragma once

#include "imagefile/CImageReceiver.h"
#include "imagefile/ColorDepth.h"
#include "imagefile/ImageResult.h"

#include <cstdint>
#include <filesystem>
#include <utility>

namespace vireo {

/// Reads a picture from a file and hands it row by row to a receiver: set the file and the
/// receiver, Open, ReadLine as often as there are rows, Close.
class CImageReader {
public:
    CImageReader() = default;
    CImageReader(const CImageReader&) = delete;
    CImageReader& operator=(const CImageReader&) = delete;
    virtual ~CImageReader() = default;

    /// Opens the file, closing one that is still open, and announces the picture to the receiver.
    /// `rows` takes its height. An ICC profile in the file is copied to `iccFile` unless that is
    /// empty.
    virtual ImageResult Open(std::uint32_t& rows, const std::filesystem::path& iccFile = {}) = 0;
    /// Reads the next row into the receiver's line buffer.
    virtual ImageResult ReadLine() = 0;
    /// Closes the file and passes `status`, 0 when all went well, to the receiver's EndImage.
    virtual ImageResult Close(std::uint32_t status) = 0;

    void SetFile(std::filesystem::path file) { m_FileName = std::move(file); }
    /// The receiver is not owned and must be there until Close.
    void SetReceiver(CImageReceiver& receiver) { m_ptrReceiver = &receiver; }

    // What the last Open found; 0 where it did not come so far.
    ColorDepth Depth() const { return m_eDepth; }
    std::uint32_t Height() const { return m_uHeight; }         ///< Rows.
    std::uint32_t Width() const { return m_uWidth; }           ///< Pixels.
    std::uint32_t Resolution() const { return m_uResolution; } ///< Dots per inch; 0: not known.
    std::uint32_t ColorMapEntries() const { return m_uColorMapEntries; } ///< 0 or 256.

protected:
    std::filesystem::path m_FileName;
    CImageReceiver* m_ptrReceiver = nullptr;
    ColorDepth m_eDepth = ColorDepth::Bilevel;
    std::uint32_t m_uHeight = 0;
    std::uint32_t m_uWidth = 0;
    std::uint32_t m_uResolution = 0;
    std::uint32_t m_uColorMapEntries = 0;
};

} // namespace vireo
