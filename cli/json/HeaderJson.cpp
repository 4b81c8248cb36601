#include "cli/json/HeaderJson.h"

#include "cli/json/Json.h"
#include "cli/json/Subject.h"
#include "testfile/HeaderKeys.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <type_traits>
#include <variant>

namespace vireo {

namespace {

struct LoadedHeader {
    TestFileHeader header;
    std::int64_t dataLength = 0;
};

/// Loads the text header, if the file has one; gives the reason when it cannot.
std::string LoadHeader(const Subject& subject, LoadedHeader& loaded)
{
    PositionalFile file;
    if (const FileStatus status = file.Open(subject.path); status != FileStatus::Ok)
        return std::string(Describe(status));
    std::int64_t dataOffset = OldFileHeader::kBytes;
    if (subject.recognition.container == Container::Text) {
        if (const HeaderResult result = loaded.header.Load(file); result != HeaderResult::Ok)
            return std::string(Describe(result));
        dataOffset = loaded.header.DataOffset();
    }
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

FileResult DescribeLoaded(const Subject& subject, DataLength dataLength)
{
    LoadedHeader loaded;
    if (std::string failure = LoadHeader(subject, loaded); !failure.empty())
        return {{}, std::move(failure)};
    Json object = BeginObject(subject);
    object["keys"] = KeysToJson(loaded.header);
    if (dataLength == DataLength::Told)
        object["data_length"] = loaded.dataLength;
    return {ToLine(object), {}};
}

} // namespace

FileResult DescribeHeader(const Subject& subject)
{
    return DescribeLoaded(subject, DataLength::LeftOut);
}

FileResult DescribeHeaderAndLength(const Subject& subject)
{
    return DescribeLoaded(subject, DataLength::Told);
}

} // namespace vireo
