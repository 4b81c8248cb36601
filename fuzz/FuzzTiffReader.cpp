#include "fuzz/FuzzInput.h"
#include "imagefile/CTIFReader.h"

#include <algorithm>
#include <vector>

namespace vireo {

namespace {

/// Takes rows; behind each line buffer lies nothing that may be written.
class RowTaker : public CImageReceiver {
public:
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t, std::uint32_t, std::uint32_t) override
    {
        Require(width != 0 && height != 0);
        m_row = std::vector<std::uint8_t>(static_cast<std::size_t>(BytesPerRow(depth, width)));
        m_row.shrink_to_fit();
        return ImageResult::Ok;
    }
    std::uint8_t* GetLineBuffer() override { return m_row.data(); }
    ImageResult LineDone() override { return ImageResult::Ok; }
    ImageResult EndImage(std::uint32_t) override { return ImageResult::Ok; }

private:
    std::vector<std::uint8_t> m_row;
};

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    constexpr std::uint32_t kMostRows = 500;
    RowTaker taker;
    CTIFReader reader;
    reader.SetFile(InputFile({bytes, size}));
    reader.SetReceiver(taker);
    if (size != 0)
        reader.SetPage(1 + bytes[size - 1] % 2);
    std::uint32_t rows = 0;
    if (reader.Open(rows) == ImageResult::Ok) {
        Require(reader.Page() <= reader.Pages());
        for (std::uint32_t row = 0; row < std::min(rows, kMostRows); ++row)
            static_cast<void>(reader.ReadLine());
    }
    // A text is never longer than the file.
    Require(reader.Description().size() <= size);
    Require(reader.Close(0) == ImageResult::Ok);
    Require(reader.ReadLine() == ImageResult::TifReadTooLong);
    return 0;
}
