#include "viewers/oscilloscope/OscilloscopeFolder.h"

#include "platform/Path.h"
#include "platform/Text.h"

#include <algorithm>
#include <system_error>

namespace vireo {

std::string OscilloscopeFolderEntry::Description() const
{
    return Format("%ddpi %s %s", iResolution, bColour ? "Color" : "Gray",
        bAdjusted ? "Adjusted" : "Unadjusted");
}

namespace {

constexpr std::string_view kNameStart = "oscil_";
constexpr std::string_view kExtension = ".con";

} // namespace

std::optional<OscilloscopeFolderEntry> OscilloscopeEntryFromPath(const std::filesystem::path& path)
{
    const std::string name = LowerAscii(Utf8FromPath(path.filename()));
    if (!name.starts_with(kNameStart) || !name.ends_with(kExtension)
        || name.size() < kNameStart.size() + kExtension.size())
        return std::nullopt;

    const std::string_view title =
        std::string_view(name).substr(0, name.size() - kExtension.size());
    OscilloscopeFolderEntry entry;
    entry.path = path;
    entry.bAdjusted = title.find("unadjust") == std::string_view::npos;
    entry.bColour = title.find("gray") == std::string_view::npos;
    entry.iResolution = ParseInteger(title.substr(title.rfind('_') + 1));
    return entry;
}

std::vector<OscilloscopeFolderEntry> ListOscilloscopeFolder(const std::filesystem::path& folder)
{
    std::vector<OscilloscopeFolderEntry> entries;
    std::error_code error;
    std::filesystem::directory_iterator file(folder, error);
    for (; !error && file != std::filesystem::directory_iterator(); file.increment(error)) {
        std::error_code kindError;
        if (!file->is_regular_file(kindError))
            continue;
        if (auto entry = OscilloscopeEntryFromPath(file->path()))
            entries.push_back(std::move(*entry));
    }
    // Systems list a folder in any order; the first entry is shown first, so it must not change.
    std::sort(entries.begin(), entries.end(),
        [](const OscilloscopeFolderEntry& left, const OscilloscopeFolderEntry& right) {
            const std::string leftName = LowerAscii(Utf8FromPath(left.path.filename()));
            const std::string rightName = LowerAscii(Utf8FromPath(right.path.filename()));
            return leftName != rightName ? leftName < rightName : left.path < right.path;
        });
    return entries;
}

} // namespace vireo
