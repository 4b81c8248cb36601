#include "viewers/tonal/TonalExport.h"

#include "viewers/controls/LineTable.h"
#include "viewers/tonal/TonalFileText.h"
#include "viewers/tonal/TonalResolutionData.h"

namespace vireo {

namespace {

constexpr const char* kHeading = "patch,L,scan_red,scan_green,scan_blue,fit_red,fit_green,fit_blue,"
                                 "difference_red,difference_green,difference_blue,density\r\n";

void AppendPatch(std::string& text, const TonalResolutionData& data, std::size_t index)
{
    const TonalPatch& patch = data.m_patches[index];
    const auto append = [&text](double value) {
        text += ',';
        AppendNumber(text, value);
    };
    text += TonalPatchName(index);
    append(patch.lightness);
    for (const double scan : patch.scan)
        append(scan);
    for (const LineFit& fit : data.m_fit)
        append(fit.At(patch.lightness));
    for (std::size_t channel = 0; channel < kTonalChannels; ++channel)
        append(data.DeviationOf(patch, channel));
    append(patch.density);
    text += "\r\n";
}

} // namespace

FileStatus ExportTonalAsCsv(const std::filesystem::path& target, const TonalResolutionData& data)
{
    const auto appendRows = [&data](std::string& text, std::int64_t first, std::int64_t count) {
        for (std::int64_t i = first; i < first + count; ++i)
            AppendPatch(text, data, static_cast<std::size_t>(i));
        return true;
    };
    return WriteLineTable(target, kHeading, std::ssize(data.m_patches), appendRows);
}

} // namespace vireo
