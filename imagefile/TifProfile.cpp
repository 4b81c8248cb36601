#include "imagefile/TifProfile.h"

#include "platform/AtomicFile.h"

#include <algorithm>
#include <vector>

namespace vireo {

ImageResult CopyTifProfile(
    const TifBytes& bytes, const TifEntry& entry, const std::filesystem::path& iccFile)
{
    if (entry.type != TifType::Undefined)
        return ImageResult::TifFormatError;
    if (iccFile.empty())
        return ImageResult::Ok;
    AtomicFile output;
    if (output.Open(iccFile) != FileStatus::Ok)
        return ImageResult::CantOpenIcc;
    const std::uint64_t begin = entry.count <= 4 ? entry.fieldOffset : entry.value;
    if (!bytes.Hold(begin, entry.count))
        return ImageResult::CantReadTif;
    std::vector<std::uint8_t> piece(64 * 1024);
    for (std::uint64_t done = 0; done < entry.count;) {
        const auto part = std::span(piece).first(
            static_cast<std::size_t>(std::min<std::uint64_t>(piece.size(), entry.count - done)));
        if (!bytes.ReadAll(begin + done, part))
            return ImageResult::CantReadTif;
        if (output.Write(part) != FileStatus::Ok)
            return ImageResult::CantWriteIcc;
        done += part.size();
    }
    return output.Commit() == FileStatus::Ok ? ImageResult::Ok : ImageResult::CantWriteIcc;
}

} // namespace vireo
