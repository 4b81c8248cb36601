#pragma once

#include "viewers/controls/PicturePyramid.h"

#include <memory>
#include <optional>
#include <thread>

namespace vireo {

/// Builds the pyramid of a picture behind the scenes while the picture is already looked at.
class PyramidBuilder {
public:
    PyramidBuilder() = default;
    PyramidBuilder(const PyramidBuilder&) = delete;
    PyramidBuilder& operator=(const PyramidBuilder&) = delete;
    /// Ends the work that runs.
    ~PyramidBuilder() { Stop(); }

    /// Begins with a picture; null forgets the one before. What was built or is being built is
    /// dropped. The rows live as long as they are needed.
    void Start(std::shared_ptr<const PictureRows> rows);
    void Stop();

    /// What there is so far; null before the start.
    const PicturePyramid* Pyramid() const { return m_pyramid.get(); }
    bool IsBuilding() const;
    /// From 0 to 1 while it builds.
    std::optional<double> Fraction() const;

private:
    std::shared_ptr<const PictureRows> m_rows;
    std::unique_ptr<PicturePyramid> m_pyramid;
    std::unique_ptr<WorkProgress> m_progress;
    std::thread m_thread;
};

} // namespace vireo
