#pragma once

#include "platform/WorkProgress.h"

#include <chrono>
#include <future>
#include <memory>

namespace vireo {

class PictureData;

/// Loads pictures on a thread of its own, one after the other. All calls come from one thread.
class PictureLoader {
public:
    PictureLoader();
    PictureLoader(const PictureLoader&) = delete;
    PictureLoader& operator=(const PictureLoader&) = delete;
    /// Ends what is being loaded.
    ~PictureLoader();

    /// Gives up the picture before and begins to load this one, which has been opened; where that
    /// failed, nothing is loaded.
    void Start(std::unique_ptr<PictureData> picture);
    /// Ends loading. What is loaded so far stays.
    void Cancel();

    /// The picture last started; before the first, one without anything.
    const PictureData& Picture() const { return *m_picture; }
    bool IsRunning() const { return !Wait(std::chrono::milliseconds(0)); }
    /// Waits for the end of loading, but no longer than so; false when it goes on.
    bool Wait(std::chrono::milliseconds atMost) const;
    /// How much is loaded, from 0 to 1.
    double Fraction() const { return m_progress->Fraction().value_or(0.0); }

private:
    std::unique_ptr<PictureData> m_picture;
    std::unique_ptr<WorkProgress> m_progress;
    std::future<void> m_loading;
};

} // namespace vireo
