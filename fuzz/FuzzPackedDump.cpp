#include "fuzz/FuzzInput.h"
#include "platform/Path.h"
#include "testfile/DumpUnpacker.h"

#include <system_error>

namespace vireo {

namespace {

/// The folder that members are unpacked into, empty before each input. It lies two folders below
/// one of our own, so that what climbs out of it is seen.
class Target {
public:
    Target()
        : m_outer(FolderOf(InputFile({})) / (InputFile({}).filename().string() + "-dump")),
          m_folder(m_outer / "in" / "folder")
    {
    }
    ~Target() { Clear(); }

    const std::filesystem::path& MakeEmpty()
    {
        Clear();
        std::filesystem::create_directories(m_folder);
        return m_folder;
    }
    std::size_t FilesInside() const { return Count(m_folder); }
    /// Whether there is nothing but the folders.
    bool IsCleanOutside() const { return Count(m_outer) == 1 && Count(m_outer / "in") == 1; }

private:
    static std::size_t Count(const std::filesystem::path& folder)
    {
        const std::filesystem::directory_iterator files(folder);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }
    void Clear()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_outer, ignored);
    }

    std::filesystem::path m_outer;
    std::filesystem::path m_folder;
};

void CheckMembers(const PackedDump& dump, std::size_t fileBytes)
{
    std::uint64_t position = dump.DataOffset();
    bool allWhole = true;
    for (const PackedMember& member : dump.Members()) {
        // What follows a member that is cut off has no place of its own.
        Require(!member.isWhole || allWhole);
        allWhole = allWhole && member.isWhole;
        if (!member.isWhole)
            continue;
        Require(member.offset == position && *member.size <= fileBytes - position);
        position += *member.size;
    }
}

void CheckUnpacked(const PackedDump& dump, const Target& target, const UnpackReport& report)
{
    Require(report.memberCount == dump.Members().size());
    Require(report.writtenCount + report.leftOut.size() == report.memberCount);
    // No temporary file is left, and none is anywhere else.
    Require(target.FilesInside() == report.writtenCount);
    Require(target.IsCleanOutside());
    for (const PackedMember& member : dump.Members()) {
        if (member.IsAccepted())
            Require(member.FileName().filename() == member.FileName());
    }
    Require(report.IsComplete() == DescribeLeftOut(report).empty());
    Require(DescribeLeftOut(report).find('\n') == std::string::npos);
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    static Target target;
    PackedDump dump;
    const DumpResult result = dump.Open(InputFile({bytes, size}));
    Require(result == DumpResult::Ok || dump.Members().empty());
    CheckMembers(dump, size);
    if (dump.Members().empty())
        return 0;
    WorkProgress progress;
    const UnpackReport report =
        UnpackDump(dump, target.MakeEmpty(), DumpDescription::Kept, progress);
    CheckUnpacked(dump, target, report);
    return 0;
}
