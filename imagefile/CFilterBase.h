#pragma once

#include "imagefile/CImageReceiver.h"

namespace vireo {

/// A stage of the writer that changes rows and hands them on. By itself it changes nothing.
class CFilterBase : public CImageReceiver {
public:
    /// The next stage is not owned and must outlive this one.
    explicit CFilterBase(CImageReceiver& next) : m_next(next) { }

    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override
    {
        return m_next.BeginImage(depth, width, height, resolution, reserved1, reserved2);
    }
    /// The next stage's: a filter works in place.
    std::uint8_t* GetLineBuffer() override { return m_next.GetLineBuffer(); }
    ImageResult LineDone() override { return m_next.LineDone(); }
    ImageResult EndImage(std::uint32_t status) override { return m_next.EndImage(status); }

private:
    CImageReceiver& m_next;
};

} // namespace vireo
