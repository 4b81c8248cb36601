#include "figures/FileSummary.h"

#include "figures/HeaderJson.h"
#include "figures/LimitsCheck.h"
#include "figures/Subject.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vireo {

namespace {

struct Plane {
    const char* name;
    const char* letter;
};
constexpr Plane kPlanes[] = {{"red", "R"}, {"green", "G"}, {"blue", "B"}, {"gray", "gray"}};

/// "mean R 219.3 G 217.4"; the one plane of a gray file, which is stored as green, stands alone.
std::string OfPlanes(const char* what, const char* format, const Json& planes, const char* member)
{
    std::string text;
    std::string last;
    int count = 0;
    for (const Plane& plane : kPlanes) {
        const auto found = planes.find(plane.name);
        if (found == planes.end() || found->is_null())
            continue;
        const Json& value = member ? (*found)[member] : *found;
        last = Format(format, value.get<double>());
        text.append(" ").append(plane.letter).append(" ").append(last);
        ++count;
    }
    if (count == 0)
        return {};
    return what + (count == 1 ? " " + last : text);
}

std::string OfStarTest(const Json& figures)
{
    const Json& sweeps = figures["sweeps"];
    double highest = 0.0;
    for (const Json& sweep : sweeps)
        highest = std::max(highest, sweep["curves"]["x_vibration_average"]["rms"].get<double>());
    return Format(
        sweeps.size() == 1 ? "%zu sweep, X avg rms %.3f" : "%zu sweeps, X avg rms to %.3f",
        sweeps.size(), highest);
}

std::string OfPicture(const Json& figures)
{
    return Format("%lld x %lld pixels, %lld dpi", figures["width"].get<long long>(),
        figures["height"].get<long long>(), figures["resolution"].get<long long>());
}

} // namespace

std::string TellingFigures(FileKind kind, const Json& figures)
{
    switch (kind) {
    case FileKind::Oscilloscope:
    case FileKind::Mtf:
        return OfPlanes("mean", "%.1f", figures["planes"], "mean");
    case FileKind::Noise:
        return OfPlanes("average", "%.0f", figures["averages"], nullptr);
    case FileKind::StarTest:
        return OfStarTest(figures);
    case FileKind::TonalResolution:
        return Format("dynamic range %.2f of %.2f", figures["scanner_dynamic_range"].get<double>(),
            figures["it8_dynamic_range"].get<double>());
    case FileKind::Stitch:
    case FileKind::Tiff:
        return OfPicture(figures);
    case FileKind::Kitbag:
        return Format("%zu members", figures["members"].size());
    case FileKind::LightProfile:
    case FileKind::AdjustCenterCcd:
    case FileKind::VerticalCameraVerification:
        return Format("%lld bytes of data", figures["data_length"].get<long long>());
    case FileKind::Unknown:
        break;
    }
    return {};
}

namespace {

/// A text of the header's keys, as far as there is one.
std::string KeyText(const Json& keys, const char* name)
{
    const auto found = keys.find(name);
    if (found == keys.end() || !found->is_string())
        return {};
    return std::string(Trimmed(found->get<std::string>()));
}

void AddHeader(const Subject& subject, FileSummary& summary)
{
    if (subject.Kind() == FileKind::Tiff || subject.Kind() == FileKind::Kitbag)
        return;
    const FiguresResult header = DescribeKeys(subject);
    if (header.object.is_null())
        return;
    const Json& keys = header.object["keys"];
    summary.scanner = KeyText(keys, "ScannerName");
    summary.date = KeyText(keys, "Date");
}

void AddVerdict(const FileVerdict& checked, FileSummary& summary)
{
    const bool isCutOff = !checked.failure.empty() && checked.verdict->checked > 0;
    summary.verdict = OutcomeName(isCutOff ? Verdict::Outcome::Fail : checked.verdict->Result());
    if (checked.verdict->failedCount > 0)
        summary.counts =
            Format("%zu of %zu", checked.verdict->failedCount, checked.verdict->checked);
}

} // namespace

FileSummary Summarise(
    const Subject& subject, const LimitsFile* limits, const AnalyseSettings& settings)
{
    FileSummary summary;
    summary.kind = KindTitle(subject.Kind());
    Json figures;
    const LimitsFile none;
    const FileVerdict checked = CheckFile(subject, limits ? *limits : none, settings, &figures);
    summary.failure = checked.failure;
    if (figures.is_null())
        return summary;
    AddHeader(subject, summary);
    summary.figures = TellingFigures(subject.Kind(), figures);
    if (limits)
        AddVerdict(checked, summary);
    return summary;
}

} // namespace vireo
