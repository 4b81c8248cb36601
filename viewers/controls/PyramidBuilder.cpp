#include "viewers/controls/PyramidBuilder.h"

#include <algorithm>
#include <utility>

namespace vireo {

void PyramidBuilder::Start(std::shared_ptr<const PictureRows> rows)
{
    Stop();
    m_rows = std::move(rows);
    if (!m_rows)
        return;
    m_pyramid = std::make_unique<PicturePyramid>(*m_rows);
    if (!m_pyramid->HasLevels())
        return;
    m_progress = std::make_unique<WorkProgress>();
    m_thread = std::thread([pyramid = m_pyramid.get(), progress = m_progress.get()] {
        pyramid->Build(*progress, std::max(std::thread::hardware_concurrency(), 1U));
    });
}

void PyramidBuilder::Stop()
{
    if (m_thread.joinable()) {
        m_progress->Cancel();
        m_thread.join();
    }
    m_pyramid.reset();
    m_progress.reset();
    m_rows.reset();
}

bool PyramidBuilder::IsBuilding() const
{
    return m_thread.joinable() && m_pyramid && !m_pyramid->IsComplete();
}

std::optional<double> PyramidBuilder::Fraction() const
{
    return IsBuilding() ? m_progress->Fraction() : std::nullopt;
}

} // namespace vireo
