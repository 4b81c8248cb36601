#pragma once

#include "cli/Settings.h"
#include "limits/LimitsFile.h"
#include "platform/PositionalFile.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QPainter;
class QPdfWriter;
class QRectF;

namespace vireo {

struct Subject;

/// What a picture file is made of.
struct Drawing {
    std::string title; ///< In the file's own description, UTF-8.
    /// Draws the plot of the settings' size, its top left corner at the origin.
    std::function<void(QPainter&)> drawPlot;
    /// Draws the printed page into its printable rectangle.
    std::function<void(QPainter&, const QRectF& page)> drawPage;
    /// Lines of text about the file (Windows-1252), of which the settings may ask for a page
    /// instead of the plot.
    std::vector<std::string> list;
};

/// Takes drawings instead of the settings' output: a page of a report.
class DrawingTarget {
public:
    virtual ~DrawingTarget() = default;
    virtual FileStatus Take(const Drawing& drawing) = 0;
};

/// The limits that hold for a file, to be marked in its plot; none without a limits file.
std::vector<Limit> LimitsToMark(const Subject& subject, const Settings& settings);

/// What drawing needs of the system: fonts, and no window. One lives as long as anything is drawn;
/// more at the same time share what the first has made.
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

/// Gives a PDF the settings' paper, without margins: the page's layout has its own.
void SetUpPdf(QPdfWriter& writer, const Settings& settings, const std::string& title);

/// Writes a drawing as the settings' output in their format, complete or not at all; or hands it to
/// their target. Gives the reason when it cannot, else an empty text.
std::string WritePicture(const Drawing& drawing, const Settings& settings);

} // namespace vireo
