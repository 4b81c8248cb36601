#include "viewers/picture/PictureLoader.h"

#include "viewers/picture/PictureData.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace vireo {

PictureLoader::PictureLoader()
    : m_picture(std::make_unique<PictureData>()),
      m_progress(std::make_unique<WorkProgress>())
{
}

PictureLoader::~PictureLoader()
{
    Cancel();
}

void PictureLoader::Cancel()
{
    m_progress->Cancel();
    if (m_loading.valid())
        m_loading.wait();
}

bool PictureLoader::Wait(std::chrono::milliseconds atMost) const
{
    return !m_loading.valid() || m_loading.wait_for(atMost) == std::future_status::ready;
}

void PictureLoader::Start(std::unique_ptr<PictureData> picture)
{
    // More threads than these wait for the decoder, which is one.
    constexpr unsigned kMostThreads = 4;
    Cancel();
    m_picture = std::move(picture);
    m_progress = std::make_unique<WorkProgress>();
    if (m_picture->Holding() == PictureHolding::Nowhere)
        return;
    const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
    m_loading =
        std::async(std::launch::async, [this, threads] { m_picture->Load(*m_progress, threads); });
}

} // namespace vireo
