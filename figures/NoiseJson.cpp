#include "figures/NoiseJson.h"

#include "figures/Analysers.h"
#include "figures/Json.h"
#include "figures/Subject.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoiseRuler.h"
#include "viewers/noise/NoiseView.h"

namespace vireo {

namespace {

struct PlaneName {
    ShownColour colour;
    const char* name;
};
constexpr PlaneName kPlaneNames[] = {{ShownColour::Red, "red"}, {ShownColour::Green, "green"},
    {ShownColour::Blue, "blue"}, {ShownColour::Gray, "gray"}};

/// A plane by the name of its slot: a gray file has its one plane as green.
const NoisePlane* StoredPlane(const NoiseData& data, ShownColour colour)
{
    return colour == ShownColour::Gray && !data.m_bHasColour ? nullptr : data.PlaneOf(colour);
}

Json Averages(const NoiseData& data)
{
    Json averages;
    for (const PlaneName& row : kPlaneNames) {
        const NoisePlane* plane = StoredPlane(data, row.colour);
        averages[row.name] = plane ? Json(plane->average) : Json(nullptr);
    }
    return averages;
}

void AddMarks(Json& marks, const NoisePlane& plane, NoiseMarkKind kind, const NoiseRuler& ruler)
{
    const std::vector<std::uint8_t>& samples = plane.trace.samples;
    const NoiseView view = NoiseView::Whole(ruler.lineLength);
    const NoiseMarksInView inView(samples, plane.Marks(kind), plane.Band(), kind,
        view.First(ruler.lineLength), view.End(ruler.lineLength));
    for (std::size_t i = 0; i < inView.Count(); ++i) {
        const std::int32_t index = inView.At(i);
        Json mark;
        mark["type"] = kind == NoiseMarkKind::Dip ? "dip" : "peak";
        mark["index"] = index;
        mark["value"] = samples[static_cast<std::size_t>(index)];
        mark["label"] = ruler.MarkLabel(index);
        marks.push_back(std::move(mark));
    }
}

Json MarksOfPlanes(const NoiseData& data, const NoiseRuler& ruler)
{
    Json planes = Json::object();
    for (const PlaneName& row : kPlaneNames) {
        const NoisePlane* plane = StoredPlane(data, row.colour);
        if (!plane)
            continue;
        Json& marks = planes[row.name] = Json::array();
        AddMarks(marks, *plane, NoiseMarkKind::Dip, ruler);
        AddMarks(marks, *plane, NoiseMarkKind::Peak, ruler);
    }
    return planes;
}

} // namespace

FiguresResult AnalyseNoise(const Subject& subject, const AnalyseSettings& settings)
{
    NoiseData data;
    if (const NoiseResult result = data.Read(subject.path); result != NoiseResult::Ok)
        return {{}, data.DescribeFailure(result)};
    const PositionUnit unit = settings.unit ? *settings.unit : ReadUnitSetting();
    Json object = BeginObject(subject);
    object["line_length"] = data.m_iLineLength;
    object["has_color"] = data.m_bHasColour;
    object["has_gray"] = data.m_bHasGray;
    object["averages"] = Averages(data);
    object["width_factor"] = data.m_dWidthFactor;
    object["scanner_name"] = FileText(data.m_ScannerName);
    object["unit"] = UnitName(unit);
    object["marks"] = MarksOfPlanes(data, {data.m_iLineLength, data.m_dWidthFactor, unit});
    return {std::move(object), {}};
}

} // namespace vireo
