#pragma once

#include "imagefile/CFilterBase.h"
#include "imagefile/CTIFReader.h"

namespace vireo {

/// Hands a reader's rows on as a writer wants them: beginning as zeros, where a damaged strip does
/// not fill them, and with little-endian samples whatever the byte order of the file is.
class CLittleEndianFilter : public CFilterBase {
public:
    /// The reader must be the one that the rows come from.
    CLittleEndianFilter(const CTIFReader& reader, CImageReceiver& next)
        : CFilterBase(next),
          m_reader(reader)
    {
    }

    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override;
    std::uint8_t* GetLineBuffer() override;
    ImageResult LineDone() override;

protected:
    const CTIFReader& Reader() const { return m_reader; }

private:
    const CTIFReader& m_reader;
    bool m_bSwaps = false;
    std::uint8_t* m_row = nullptr; ///< The next stage's.
};

} // namespace vireo
