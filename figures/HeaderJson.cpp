#include "figures/HeaderJson.h"

#include "figures/Json.h"
#include "figures/Subject.h"
#include "testfile/HeaderKeys.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace vireo {

namespace {

struct LoadedHeader {
    TestFileHeader header;
    std::int64_t dataLength = 0;
};

/// Whether the first '=' is that of the data offset, and not of bytes that happen to hold one.
bool HasDataPointer(const TestFileHeader& header)
{
    constexpr std::string_view kKey = "DataPointer";
    const std::string_view text = header.Text();
    return text.substr(0, text.find('=')).ends_with(kKey);
}

/// Some kinds have a text of keys but no data offset: its keys end where their data begin, or with
/// the file.
void TakeTextAsHeader(const PositionalFile& file, FileKind kind, LoadedHeader& loaded)
{
    constexpr std::string_view kStarTestData = "BEGIN_DATA";
    loaded.header.LoadKeys(file, kind == FileKind::StarTest ? kStarTestData : std::string_view());
}

bool HasNoDataOffset(FileKind kind)
{
    return kind == FileKind::StarTest || kind == FileKind::TonalResolution;
}

/// Loads the header; gives the reason when a file that should have a text header has none.
std::string LoadHeader(const Subject& subject, LoadedHeader& loaded)
{
    PositionalFile file;
    if (const FileStatus status = file.Open(subject.path); status != FileStatus::Ok)
        return std::string(Describe(status));
    if (HasNoDataOffset(subject.Kind())) {
        TakeTextAsHeader(file, subject.Kind(), loaded);
        return {};
    }
    const bool isText = subject.recognition.container == Container::Text;
    const HeaderResult result = loaded.header.Load(file);
    if (isText && result != HeaderResult::Ok)
        return std::string(Describe(result));
    // A text header may stand under a tag that no viewer opens; any other file has the old one.
    const bool hasText = result == HeaderResult::Ok && (isText || HasDataPointer(loaded.header));
    if (!hasText)
        loaded.header = TestFileHeader();
    const std::int64_t dataOffset = hasText ? loaded.header.DataOffset() : OldFileHeader::kBytes;
    loaded.dataLength =
        std::max<std::int64_t>(static_cast<std::int64_t>(file.Size()) - dataOffset, 0);
    return {};
}

Json ValueToJson(const HeaderKeyValue& value)
{
    return std::visit(
        [](const auto& held) -> Json {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::string>)
                return FileText(held);
            else
                return held;
        },
        value);
}

Json KeysToJson(const TestFileHeader& header)
{
    Json keys = Json::object();
    for (const HeaderKey& key : ListHeaderKeys(header))
        keys[std::string(key.name)] = ValueToJson(key.value);
    return keys;
}

enum class DataLength { Told, LeftOut };

FiguresResult DescribeLoaded(const Subject& subject, DataLength dataLength)
{
    LoadedHeader loaded;
    if (std::string failure = LoadHeader(subject, loaded); !failure.empty())
        return {{}, std::move(failure)};
    Json object = BeginObject(subject);
    object["keys"] = KeysToJson(loaded.header);
    if (dataLength == DataLength::Told)
        object["data_length"] = loaded.dataLength;
    return {std::move(object), {}};
}

} // namespace

FiguresResult DescribeKeys(const Subject& subject)
{
    return DescribeLoaded(subject, DataLength::LeftOut);
}

FileResult DescribeHeader(const Subject& subject)
{
    return ToFileResult(DescribeKeys(subject));
}

FiguresResult DescribeHeaderAndLength(const Subject& subject)
{
    return DescribeLoaded(subject, DataLength::Told);
}

std::optional<int> ScannerFamilyOf(const Subject& subject)
{
    LoadedHeader loaded;
    if (!LoadHeader(subject, loaded).empty())
        return std::nullopt;
    for (const auto value : {loaded.header.ScannerFamily(), loaded.header.Generation()}) {
        if (value.found)
            return value.value;
    }
    return std::nullopt;
}

} // namespace vireo
