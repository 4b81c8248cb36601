#pragma once

#include "bench/BenchSettings.h"

#include <cstdint>
#include <memory>
#include <string>

class QPainter;
class QSize;

namespace vireo {

class PictureRows;

/// A viewer's plot of one file, as the viewer draws it, for measuring. Along its axis it shows any
/// stretch of its extent, which is counted in samples or pixels.
class MeasuredPlot {
public:
    virtual ~MeasuredPlot() = default;

    /// The size of every picture to come; told once, before anything else.
    virtual void SetSize(const QSize&) { }
    /// Does again what the first drawing after loading has to do and later ones do not.
    virtual void PrepareFirst() = 0;
    /// Draws the stretch from `first` on into a picture of a size.
    virtual void Draw(QPainter& painter, const QSize& size, double first, double length) = 0;
    /// The whole extent.
    virtual double Extent() const = 0;
    /// Samples or pixels in view at the whole extent.
    virtual std::int64_t Points() const = 0;
};

/// Loads a file for measuring; a null plot and the reason when it cannot.
struct LoadedPlot {
    std::unique_ptr<MeasuredPlot> plot;
    std::string failure;
};
LoadedPlot LoadOscilloscopePlot(const BenchSettings& settings);
LoadedPlot LoadAdjustCenterPlot(const BenchSettings& settings);
LoadedPlot LoadVerticalCameraPlot(const BenchSettings& settings);
LoadedPlot LoadLightProfilePlot(const BenchSettings& settings);
LoadedPlot LoadNoisePlot(const BenchSettings& settings);
LoadedPlot LoadTiffPlot(const BenchSettings& settings);
LoadedPlot LoadTonalPlot(const BenchSettings& settings);
LoadedPlot LoadStarTestPlot(const BenchSettings& settings);
LoadedPlot LoadStitchPlot(const BenchSettings& settings);

inline constexpr const char* kNothingToPlot = "There is nothing to plot";
/// The plot of a picture, moved over along its diagonal; none of a picture without pixels.
LoadedPlot PicturePlotOf(std::shared_ptr<const PictureRows> rows, const BenchSettings& settings);

} // namespace vireo
