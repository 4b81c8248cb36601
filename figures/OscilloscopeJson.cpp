#include "figures/OscilloscopeJson.h"

#include "figures/Analysers.h"
#include "figures/Json.h"
#include "figures/Subject.h"
#include "platform/Text.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

namespace vireo {

namespace {

OscilloscopeKind KindToRead(const Subject& subject)
{
    if (!subject.isForced)
        return OscilloscopeKind::ByTag;
    return subject.Kind() == FileKind::Mtf ? OscilloscopeKind::Mtf : OscilloscopeKind::Oscilloscope;
}

} // namespace

std::string OpenOscilloscope(const Subject& subject, std::int64_t line, OscilloscopeData& data)
{
    const OscilloscopeResult result = data.Read(subject.path, KindToRead(subject));
    if (result != OscilloscopeResult::Ok)
        return data.DescribeFailure(result);
    if (line >= data.LineCount())
        return Format("There is no line %lld: the file has %lld, counted from 0",
            static_cast<long long>(line), static_cast<long long>(data.LineCount()));
    return {};
}

namespace {

void AddHeader(Json& object, const OscilloscopeData& data)
{
    object["color_scanner"] = data.m_bColorScanner;
    object["color"] = data.m_iColor;
    object["camera_used"] = data.m_iCameraUsed;
    object["camera_count"] = data.m_iCameraCount;
    object["corrected"] = data.m_bCorrected;
    object["scanner_width_factor"] = data.m_dScannerWidthFactor;
    object["shown_color"] = data.m_iShownColor;
    object["date"] = FileText(data.m_Date);
    object["time"] = FileText(data.m_Time);
    object["scanner_name"] = FileText(data.m_ScannerName);
    object["scanner_id"] = FileText(data.m_ScannerID);
    object["scanner_family"] = data.m_iScannerFamily;
    object["generation"] = data.m_iGeneration;
    object["firmware_revision"] = data.m_iFirmwareRevision;
    object["camera_pixels"] = data.m_iCameraPixels;
    object["magnification"] = data.m_iMagnification;
    object["center_lines"] = data.m_iCenterLines;
}

void AddLayout(Json& object, const OscilloscopeData& data)
{
    object["plane_length"] = data.PlaneLength();
    object["line_width"] = data.LineWidth();
    object["line_count"] = data.LineCount();
    object["missing"] = data.MissingItems();
}

void AddStatistics(Json& object, const OscilloscopeData::Statistics& statistics)
{
    object["min"] = statistics.min;
    object["max"] = statistics.max;
    object["mean"] = statistics.mean;
}

Json PlaneToJson(const OscilloscopeData::PlaneStatistics& statistics)
{
    Json plane;
    AddStatistics(plane, statistics.line);
    plane["cameras"] = Json::array();
    for (const auto& camera : statistics.cameras) {
        Json object;
        object["camera"] = std::string(1, ProfileCameras::Letter(camera.camera));
        AddStatistics(object, camera.statistics);
        plane["cameras"].push_back(std::move(object));
    }
    return plane;
}

constexpr std::array<const char*, 3> kPlaneNames{"red", "green", "blue"};

/// The figures of the planes that the line has; false when the file cannot give them.
bool AddPlanes(Json& object, const OscilloscopeData& data, std::int64_t line)
{
    const OscilloscopeData::LineStatistics statistics = data.ComputeStatistics(line);
    Json& planes = object["planes"] = Json::object();
    for (std::size_t i = 0; i < kPlaneNames.size(); ++i) {
        if (statistics[i])
            planes[kPlaneNames[i]] = PlaneToJson(*statistics[i]);
    }
    return !planes.empty() || data.PixelsOfLine(line) == 0;
}

} // namespace

FiguresResult AnalyseOscilloscope(const Subject& subject, const AnalyseSettings& settings)
{
    OscilloscopeData data;
    if (std::string failure = OpenOscilloscope(subject, settings.line, data); !failure.empty())
        return {{}, std::move(failure)};
    Json object = BeginObject(subject);
    AddHeader(object, data);
    AddLayout(object, data);
    if (!AddPlanes(object, data, settings.line))
        return {{}, "The data cannot be read to their end"};
    return {std::move(object), {}};
}

} // namespace vireo
