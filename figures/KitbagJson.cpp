#include "figures/KitbagJson.h"

#include "figures/Analysers.h"
#include "figures/Json.h"
#include "figures/Subject.h"
#include "platform/Sha256.h"
#include "platform/Text.h"
#include "testfile/PackedDump.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace vireo {

namespace {

/// The digest of a member; nothing where the dump has not got all of it.
std::optional<std::string> Digest(const PackedDump& dump, const PackedMember& member,
    std::vector<std::uint8_t>& buffer, const std::stop_token& stop)
{
    if (!member.isWhole)
        return std::nullopt;
    Sha256 digest;
    for (std::uint64_t done = 0; done < *member.size;) {
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), *member.size - done));
        const auto piece = std::span(buffer).first(wanted);
        if (stop.stop_requested() || dump.File().ReadAt(member.offset + done, piece) < wanted)
            return std::nullopt;
        digest.Add(piece);
        done += wanted;
    }
    return digest.HexDigest();
}

Json MemberToJson(const PackedMember& member, const std::optional<std::string>& digest)
{
    Json object;
    object["name"] = FileText(member.name);
    object["size"] = member.size ? Json(*member.size) : Json(nullptr);
    object["sha256"] = digest ? Json(*digest) : Json(nullptr);
    object["accepted"] = member.IsAccepted();
    return object;
}

} // namespace

std::string OpenDump(const Subject& subject, PackedDump& dump)
{
    const DumpResult result = dump.Open(subject.path);
    if (result == DumpResult::Ok)
        return {};
    return std::string(
        result == DumpResult::CantOpen ? Describe(dump.FileFailure()) : Describe(result));
}

FiguresResult AnalyseKitbag(const Subject& subject, const AnalyseSettings& settings)
{
    constexpr std::size_t kBufferBytes = std::size_t{1} << 20;
    PackedDump dump;
    if (std::string failure = OpenDump(subject, dump); !failure.empty())
        return {{}, std::move(failure)};
    Json object = BeginObject(subject);
    object["data_offset"] = dump.DataOffset();
    Json& members = object["members"] = Json::array();
    std::vector<std::uint8_t> buffer(kBufferBytes);
    std::size_t cutOff = 0;
    for (const PackedMember& member : dump.Members()) {
        const std::optional<std::string> digest =
            settings.contents ? Digest(dump, member, buffer, settings.stop) : std::nullopt;
        const bool isWhole = settings.contents ? digest.has_value() : member.isWhole;
        cutOff += isWhole ? 0 : 1;
        members.push_back(MemberToJson(member, digest));
    }
    if (settings.stop.stop_requested())
        return {{}, kCancelled};
    if (cutOff == 0)
        return {std::move(object), {}};
    return {
        std::move(object), Format("%zu of %zu members are cut off", cutOff, dump.Members().size())};
}

} // namespace vireo
