#include "testfile/DumpUnpacker.h"

#include "platform/AtomicFile.h"
#include "platform/FileIdentity.h"
#include "platform/Text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace vireo {

namespace {

/// What two names have in common that lead to the same file.
std::string FileKey(const std::string& name)
{
#ifdef _WIN32
    return LowerAscii(name);
#else
    return name;
#endif
}

bool IsSkipped(const PackedMember& member, DumpDescription description)
{
    return description == DumpDescription::Skipped && member.name == PackedDump::kDescriptionMember;
}

/// Writes the members of one dump, one after the other, and keeps the report.
class Unpacking {
public:
    Unpacking(const PackedDump& dump, const std::filesystem::path& folder, WorkProgress& progress)
        : m_dump(dump),
          m_folder(folder),
          m_progress(progress)
    {
    }

    void SetTotal(DumpDescription description)
    {
        std::uint64_t total = 0;
        for (const PackedMember& member : m_dump.Members()) {
            if (member.isWhole && !IsSkipped(member, description))
                total += *member.size;
        }
        m_progress.SetTotal(total);
    }

    void Take(const PackedMember& member)
    {
        ++m_report.memberCount;
        if (!member.IsAccepted())
            m_report.leftOut.push_back({member.name, LeftOutReason::Refused, member.nameFault});
        else if (!member.isWhole)
            m_report.leftOut.push_back({member.name, LeftOutReason::CutOff});
        else
            WriteAndReport(member);
        m_doneBytes += member.isWhole ? *member.size : 0;
        m_progress.SetDone(m_doneBytes);
    }

    UnpackReport TakeReport() { return std::move(m_report); }

private:
    void WriteAndReport(const PackedMember& member);
    FileStatus Write(const PackedMember& member, AtomicFile& file);

    const PackedDump& m_dump;
    const std::filesystem::path& m_folder;
    WorkProgress& m_progress;
    std::uint64_t m_doneBytes = 0;
    std::set<std::string> m_written; ///< By FileKey.
    UnpackReport m_report;
};

void Unpacking::WriteAndReport(const PackedMember& member)
{
    const std::filesystem::path target = m_folder / member.FileName();
    // The dump may be there under another name.
    if (IsSameFile(target, m_dump.Path())) {
        m_report.leftOut.push_back({member.name, LeftOutReason::Refused, NameFault::DumpItself});
        return;
    }
    AtomicFile file;
    FileStatus status = file.Open(target, AtomicFile::Links::Replaced);
    if (status == FileStatus::Ok)
        status = Write(member, file);
    if (m_progress.IsCancelled())
        return;
    if (status == FileStatus::Ok)
        status = file.Commit(AtomicFile::Flush::Never);
    if (status != FileStatus::Ok) {
        m_report.leftOut.push_back(
            {member.name, LeftOutReason::NotWritten, NameFault::None, status});
        return;
    }
    if (m_written.insert(FileKey(member.name)).second)
        ++m_report.writtenCount;
    else
        m_report.leftOut.push_back({member.name, LeftOutReason::Replaced});
}

FileStatus Unpacking::Write(const PackedMember& member, AtomicFile& file)
{
    // Some milliseconds' worth, so that the bar moves and a cancelled run ends at once.
    constexpr std::uint64_t kPieceBytes = std::uint64_t{8} << 20;
    FileStatus status = FileStatus::Ok;
    for (std::uint64_t done = 0;
         done < *member.size && status == FileStatus::Ok && !m_progress.IsCancelled();) {
        const std::uint64_t piece = std::min(kPieceBytes, *member.size - done);
        status = file.WriteFrom(m_dump.File(), member.offset + done, piece);
        done += piece;
        m_progress.SetDone(m_doneBytes + done);
    }
    return status;
}

} // namespace

UnpackReport UnpackDump(const PackedDump& dump, const std::filesystem::path& folder,
    DumpDescription description, WorkProgress& progress)
{
    Unpacking unpacking(dump, folder, progress);
    unpacking.SetTotal(description);
    for (const PackedMember& member : dump.Members()) {
        if (progress.IsCancelled())
            break;
        if (!IsSkipped(member, description))
            unpacking.Take(member);
    }
    UnpackReport report = unpacking.TakeReport();
    report.isCancelled = progress.IsCancelled();
    return report;
}

std::string LeftOutMember::Why() const
{
    switch (reason) {
    case LeftOutReason::Refused:
        return std::string(Describe(nameFault));
    case LeftOutReason::CutOff:
        return "the dump ends before it does";
    case LeftOutReason::Replaced:
        return "a later file of the dump has the same name";
    case LeftOutReason::NotWritten:
        break;
    }
    return std::string(Describe(status));
}

namespace {

struct ReasonName {
    LeftOutReason reason;
    const char* name;
};
constexpr ReasonName kReasonNames[] = {{LeftOutReason::Refused, "refused"},
    {LeftOutReason::CutOff, "cut off"}, {LeftOutReason::NotWritten, "not written"},
    {LeftOutReason::Replaced, "replaced by a later one"}};

/// A hostile name on one line.
std::string Shown(std::string name)
{
    constexpr std::size_t kLongest = 80;
    std::ranges::replace_if(
        name, [](char character) { return static_cast<unsigned char>(character) < ' '; }, '?');
    if (name.size() > kLongest)
        name = name.substr(0, kLongest) + "...";
    return name;
}

std::string WithReason(const LeftOutMember& member)
{
    return Shown(member.name) + ": " + member.Why();
}

} // namespace

std::string DescribeLeftOut(const UnpackReport& report)
{
    if (report.leftOut.empty())
        return {};
    std::string text =
        Format("%zu of %zu members left out", report.leftOut.size(), report.memberCount);
    const char* separator = ": ";
    for (const ReasonName& row : kReasonNames) {
        const auto isSo = [&row](const auto& member) { return member.reason == row.reason; };
        const auto first = std::ranges::find_if(report.leftOut, isSo);
        if (first == report.leftOut.end())
            continue;
        const auto count = std::ranges::count_if(report.leftOut, isSo);
        text += Format("%s%td %s (%s%s)", separator, count, row.name, WithReason(*first).c_str(),
            count > 1 ? "; ..." : "");
        separator = ", ";
    }
    return text;
}

std::string ListLeftOut(const UnpackReport& report)
{
    constexpr std::size_t kMostLines = 12;
    std::string text =
        Format("%zu of %zu files left out:\n", report.leftOut.size(), report.memberCount);
    const std::size_t lines = std::min(report.leftOut.size(), kMostLines);
    for (std::size_t i = 0; i < lines; ++i)
        text += "\n" + WithReason(report.leftOut[i]);
    if (lines < report.leftOut.size())
        text += Format("\nand %zu more", report.leftOut.size() - lines);
    return text;
}

} // namespace vireo
