#pragma once

#include "imagefile/CTIFReader.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// Takes a picture's rows, each line buffer filled with a byte first.
class RowSink : public CImageReceiver {
public:
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t first, std::uint32_t second) override
    {
        announced = {static_cast<std::uint32_t>(depth), width, height, resolution, first, second};
        m_rowBytes = static_cast<std::size_t>(BytesPerRow(depth, width));
        return beginResult;
    }
    std::uint8_t* GetLineBuffer() override
    {
        const std::uint32_t place = m_rowsAsked++ % rowsInOnePiece;
        if (place == 0)
            m_rows.assign(m_rowBytes * rowsInOnePiece, fill);
        m_row = m_rows.data() + place * m_rowBytes;
        return m_row;
    }
    std::uint32_t LinesAhead() const override
    {
        return rowsInOnePiece - (m_rowsAsked - 1) % rowsInOnePiece;
    }
    ImageResult LineDone() override
    {
        ++rowsDone;
        return lineResult;
    }
    ImageResult EndImage(std::uint32_t status) override
    {
        endStatus = status;
        return ImageResult::Ok;
    }
    /// The row in the last line buffer.
    std::string Row() const { return {m_row, m_row + m_rowBytes}; }

    std::vector<std::uint32_t> announced;
    std::uint32_t rowsDone = 0;
    std::uint32_t endStatus = 0xffff;
    ImageResult beginResult = ImageResult::Ok;
    ImageResult lineResult = ImageResult::Ok;
    std::uint8_t fill = 0;
    std::uint32_t rowsInOnePiece = 1; ///< How many rows lie one behind the other.

private:
    std::vector<std::uint8_t> m_rows;
    std::uint8_t* m_row = nullptr;
    std::uint32_t m_rowsAsked = 0;
    std::size_t m_rowBytes = 0;
};

/// What reading a page came to.
struct TifReading {
    ImageResult open = ImageResult::Ok;
    ImageResult rows = ImageResult::Ok; ///< Of the first row that failed.
    std::uint32_t failedRows = 0;
    std::string pixels; ///< All rows, those that failed with what they hold.

    bool operator==(const TifReading&) const = default;
};

inline TifReading ReadTif(
    const std::filesystem::path& file, std::uint32_t page = 1, std::uint32_t rowsInOnePiece = 1)
{
    RowSink sink;
    sink.rowsInOnePiece = rowsInOnePiece;
    CTIFReader reader;
    reader.SetFile(file);
    reader.SetPage(page);
    reader.SetReceiver(sink);
    TifReading reading;
    std::uint32_t rows = 0;
    reading.open = reader.Open(rows);
    for (; reading.open == ImageResult::Ok && rows != 0; --rows) {
        const ImageResult result = reader.ReadLine();
        if (reading.rows == ImageResult::Ok)
            reading.rows = result;
        reading.failedRows += result != ImageResult::Ok;
        reading.pixels += sink.Row();
    }
    return reading;
}

} // namespace vireo
