#include "testfile/DumpWriter.h"

#include "platform/AtomicFile.h"
#include "platform/FileIdentity.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "testfile/MemberName.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>
#include <set>

namespace vireo {

std::string DumpHeader(std::span<const DumpEntry> entries)
{
    TestFileHeader header;
    header.AppendKitbagTag(0);
    for (const DumpEntry& entry : entries)
        header.WriteText(entry.name + "=" + std::to_string(entry.size) + "\n");
    header.FixUpDataOffset();
    return header.Text();
}

namespace {

/// Collects the directory of a dump that is to be written, and what keeps files out of it.
class Directory {
public:
    explicit Directory(const std::filesystem::path& dump)
        : m_dump(dump),
          m_dumpName(Windows1252FromUtf8(Utf8FromPath(dump.filename())))
    {
    }

    /// Adds a file; the reason when it cannot be packed, else an empty text.
    std::string Add(const std::filesystem::path& path)
    {
        PositionalFile file;
        if (const FileStatus status = file.Open(path); status != FileStatus::Ok)
            return std::string(Describe(status));
        if (IsSameFile(path, m_dump))
            return "The dump would replace the file itself";
        const std::string utf8 = Utf8FromPath(path.filename());
        const std::string name = Windows1252FromUtf8(utf8);
        if (Utf8FromWindows1252(name) != utf8)
            return "The name has characters that are not in Windows code page 1252";
        if (name.find('=') != std::string::npos)
            return "The name has a '=', which ends names in a dump";
        if (const NameFault fault = CheckMemberName(name, m_dumpName); fault != NameFault::None)
            return "Cannot be packed: " + std::string(Describe(fault));
        if (!m_names.insert(LowerAscii(name)).second)
            return "A file of the same name is packed already";
        m_entries.push_back({name, file.Size()});
        return {};
    }

    const std::vector<DumpEntry>& Entries() const { return m_entries; }

    std::uint64_t TotalBytes() const
    {
        std::uint64_t total = 0;
        for (const DumpEntry& entry : m_entries)
            total += entry.size;
        return total;
    }

private:
    std::filesystem::path m_dump;
    std::string m_dumpName;
    std::set<std::string> m_names; ///< In lower case.
    std::vector<DumpEntry> m_entries;
};

/// Appends a file to the dump; the reason when the file is to blame, else an empty text.
std::string AppendFileTo(AtomicFile& output, const std::filesystem::path& path, std::uint64_t size,
    WorkProgress& progress)
{
    constexpr std::uint64_t kPieceBytes = std::uint64_t{8} << 20;
    constexpr const char* kChanged = "The file has changed while it was packed";
    PositionalFile file;
    if (file.Open(path) != FileStatus::Ok || file.Size() != size)
        return kChanged;
    for (std::uint64_t done = 0; done < size; done += kPieceBytes) {
        const std::uint64_t piece = std::min(kPieceBytes, size - done);
        if (output.WriteFrom(file, done, piece) != FileStatus::Ok)
            break;
        progress.Add(piece);
    }
    std::uint8_t last = 0;
    return size == 0 || file.ReadAt(size - 1, {&last, 1}) == 1 ? "" : kChanged;
}

} // namespace

PackReport PackDump(std::span<const std::filesystem::path> files, const std::filesystem::path& dump,
    WorkProgress& progress)
{
    PackReport report;
    Directory directory(dump);
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (std::string reason = directory.Add(files[i]); !reason.empty())
            report.failures.push_back({i, std::move(reason)});
    }
    const std::string header = DumpHeader(directory.Entries());
    if (header.size() > TestFileHeader::kMaxHeaderBytes)
        report.status = FileStatus::TooLarge;
    if (!report.IsWritten())
        return report;

    AtomicFile output;
    report.status = output.Open(dump);
    if (report.status != FileStatus::Ok)
        return report;
    // Commit returns the failure of any write.
    static_cast<void>(output.Write(header));
    progress.SetTotal(directory.TotalBytes());
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::uint64_t size = directory.Entries()[i].size;
        if (std::string reason = AppendFileTo(output, files[i], size, progress); !reason.empty()) {
            report.failures.push_back({i, std::move(reason)});
            return report;
        }
    }
    report.status = output.Commit();
    return report;
}

} // namespace vireo
