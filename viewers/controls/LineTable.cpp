#include "viewers/controls/LineTable.h"

#include "platform/AtomicFile.h"

#include <algorithm>

namespace vireo {

FileStatus WriteLineTable(const std::filesystem::path& target, std::string_view heading,
    std::int64_t pixels, const AppendTableRows& appendRows)
{
    constexpr std::int64_t kPiecePixels = 64 * 1024;
    AtomicFile file;
    if (const FileStatus status = file.Open(target); status != FileStatus::Ok)
        return status;
    FileStatus status = file.Write(heading);
    std::string rows;
    for (std::int64_t first = 0; status == FileStatus::Ok && first < pixels;
         first += kPiecePixels) {
        rows.clear();
        if (!appendRows(rows, first, std::min(kPiecePixels, pixels - first)))
            return FileStatus::Failed;
        status = file.Write(rows);
    }
    return status == FileStatus::Ok ? file.Commit() : status;
}

} // namespace vireo
