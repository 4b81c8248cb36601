#include "testfile/HeaderView.h"

#include "platform/Text.h"
#include "testfile/HeaderKeys.h"
#include "testfile/HeaderMeanings.h"
#include "testfile/HeaderNames.h"

#include <algorithm>

namespace vireo {

namespace {

constexpr const char* kOldFile = "Old Con-file.\nNo Header Information available";

bool IsTag(std::string_view line)
{
    return line.size() > 2 && line.front() == '[' && line.back() == ']';
}

/// A line without its meaning.
HeaderRow Split(std::string_view line)
{
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return {std::string(line), {}, IsTag(line) ? "Section" : ""};
    return {std::string(line.substr(0, equals)), std::string(Trimmed(line.substr(equals + 1))), {}};
}

void Explain(HeaderRow& row, const std::vector<HeaderKey>& keys)
{
    if (row.key == key::WithoutEquals(key::kDataPointer)) {
        row.meaning = "Where the data begin, in bytes";
        return;
    }
    const auto known = std::ranges::find(keys, row.key, &HeaderKey::name);
    if (known != keys.end())
        row.meaning = MeaningOf(*known);
}

} // namespace

std::vector<HeaderRow> ListHeaderRows(const TestFileHeader& header)
{
    const std::vector<HeaderKey> keys = ListHeaderKeys(header);
    std::vector<HeaderRow> rows;
    std::string_view text = header.Text();
    while (!text.empty() && rows.size() < kMostHeaderRows) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        if (end > 0) {
            rows.push_back(Split(text.substr(0, end)));
            Explain(rows.back(), keys);
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return rows;
}

namespace {

constexpr std::string_view kSections[] = {tag::kLightProfile, tag::kNoiseTest, tag::kStitchTest,
    tag::kG3LightProfile, tag::kKitbag, tag::kLiveOscilloscope, tag::kOscilloscope, tag::kMtf,
    tag::kAdjustCenterCcd, tag::kScanLinePositioning, tag::kVerticalCameraVerification,
    tag::kMirrorCarriageAdjustment, tag::kStarTest, tag::kTonalResolution};

/// Loads a header as the section of its file asks for; gives the reason when it cannot.
std::string LoadSection(
    const PositionalFile& file, const TestFileHeader& probe, TestFileHeader& header)
{
    constexpr std::string_view kStarTestData = "BEGIN_DATA";
    if (probe.IsStarTest() || probe.IsTonalResolution()) {
        header.LoadKeys(file, probe.IsStarTest() ? kStarTestData : std::string_view());
        return {};
    }
    const HeaderResult result = header.Load(file);
    if (result == HeaderResult::TooLong)
        return "Memory low";
    return result == HeaderResult::Ok ? std::string() : std::string(Describe(result));
}

} // namespace

HeaderView ReadHeaderView(const std::filesystem::path& path)
{
    HeaderView view;
    PositionalFile file;
    if (const FileStatus status = file.Open(path); status != FileStatus::Ok) {
        view.refusal = Describe(status);
        return view;
    }
    TestFileHeader probe;
    probe.LoadProbe(file);
    if (std::ranges::none_of(kSections, [&](auto section) { return probe.HasTag(section); })) {
        view.refusal = kOldFile;
        return view;
    }
    TestFileHeader header;
    view.refusal = LoadSection(file, probe, header);
    view.text = header.Text();
    view.rows = ListHeaderRows(header);
    return view;
}

} // namespace vireo
