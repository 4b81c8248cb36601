#pragma once

#include "platform/WorkProgress.h"
#include "viewers/controls/PictureRows.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace vireo {

/// A picture at a few reduced sizes, so that any part of it is drawn small from about as many
/// pixels as the drawing has. Nothing thin gets lost on the way: see PictureReduction.h.
///
/// Built in one pass over the rows, by one thread or several, with the same result. Others may look
/// at the first level while it is being built.
class PicturePyramid {
public:
    /// Memory that the levels may take.
    static constexpr std::uint64_t kMostBytes = 128'000'000;
    /// A larger picture is not worth the time: nobody has one, but a damaged file may say so.
    static constexpr std::int64_t kMostPixels = std::int64_t{1} << 37;

    /// One reduced size. A row is `width` pixels of the first channel, then those of the next.
    struct Level {
        std::int64_t reduction = 1; ///< Picture pixels along one side of a pixel.
        std::int64_t width = 0;
        std::int64_t height = 0;
        std::int64_t rowBytes = 0;
        std::unique_ptr<std::uint8_t[]> pixels;

        const std::uint8_t* Row(std::int64_t row) const { return pixels.get() + row * rowBytes; }
    };

    /// Plans the levels for a picture and takes their memory. The rows must outlive the pyramid.
    explicit PicturePyramid(const PictureRows& rows, std::uint64_t mostBytes = kMostBytes);
    PicturePyramid(const PicturePyramid&) = delete;
    PicturePyramid& operator=(const PicturePyramid&) = delete;

    /// Whether there is anything to build: neither small nor absurdly large.
    bool HasLevels() const { return !m_levels.empty(); }

    /// Fills the levels; once only. False when it was cancelled.
    bool Build(WorkProgress& progress, unsigned threads = 1);
    /// The same for those who wait for it.
    bool Build(unsigned threads = 1);

    /// From any thread: whether all levels may be used, and how many rows of the first one may.
    bool IsComplete() const { return m_isComplete.load(std::memory_order_acquire); }
    std::int64_t RowsDone() const { return m_rowsDone.load(std::memory_order_acquire); }

    /// Finest first. Only the rows that are done may be looked at.
    const std::vector<Level>& Levels() const { return m_levels; }

private:
    class Work;

    void Plan(std::uint64_t mostBytes);
    void BuildUpperLevels();

    const PictureRows& m_rows;
    std::vector<Level> m_levels;
    std::atomic<std::int64_t> m_rowsDone = 0;
    std::atomic<bool> m_isComplete = false;
};

} // namespace vireo
