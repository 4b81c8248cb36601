#pragma once

#include "cli/Settings.h"
#include "platform/PositionalFile.h"

#include <functional>
#include <memory>
#include <string>

class QPainter;
class QRectF;

namespace vireo {

/// What a picture file is made of.
struct Drawing {
    std::string title; ///< In the file's own description, UTF-8.
    /// Draws the plot of the settings' size, its top left corner at the origin.
    std::function<void(QPainter&)> drawPlot;
    /// Draws the printed page into its printable rectangle.
    std::function<void(QPainter&, const QRectF& page)> drawPage;
};

/// What drawing needs of the system: fonts, and no window. One lives as long as anything is drawn.
class DrawingSession {
public:
    DrawingSession();
    DrawingSession(const DrawingSession&) = delete;
    DrawingSession& operator=(const DrawingSession&) = delete;
    ~DrawingSession();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// Writes a drawing as the settings' output in their format, complete or not at all.
FileStatus WritePicture(const Drawing& drawing, const Settings& settings);

} // namespace vireo
