#include "testfile/PackedDump.h"

#include "platform/Path.h"
#include "platform/Text.h"
#include "testfile/HeaderNames.h"
#include "testfile/TestFileHeader.h"

#include <charconv>

namespace vireo {

std::string_view Describe(DumpResult result)
{
    switch (result) {
    case DumpResult::Ok:
        return "No error";
    case DumpResult::CantOpen:
        return "The file cannot be opened";
    case DumpResult::NotADump:
        return "Not a packed dump";
    case DumpResult::NoDataPointer:
        return Describe(HeaderResult::NoDataPointer);
    case DumpResult::BadDataPointer:
        return "The header's data offset is negative, or lies within its own line";
    case DumpResult::DataPointerBeyondFile:
        return Describe(HeaderResult::DataPointerBeyondFile);
    case DumpResult::TooLong:
        return Describe(HeaderResult::TooLong);
    }
    return "Unknown error of a packed dump";
}

std::filesystem::path PackedMember::FileName() const
{
    return PathFromUtf8(Utf8FromWindows1252(name));
}

namespace {

/// The text of a file's first bytes.
std::string ReadText(const PositionalFile& file, std::size_t bytes)
{
    std::string text(bytes, '\0');
    text.resize(file.ReadAt(0, {reinterpret_cast<std::uint8_t*>(text.data()), bytes}));
    return text;
}

/// What follows the first `character` from a position on; empty where there is none.
std::string_view Behind(std::string_view text, char character, std::size_t from)
{
    const std::size_t at = text.find(character, from);
    return at == std::string_view::npos ? std::string_view() : text.substr(at + 1);
}

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// A size as the directory holds it: digits, maybe behind blanks, and whatever follows them. One
/// without digits is no size: taken as 0 it would give the next member the wrong bytes.
std::optional<std::uint64_t> ParseSize(std::string_view text)
{
    if (text.size() > PackedDump::kMostSizeCharacters)
        return std::nullopt;
    const std::string_view digits = Trimmed(text);
    std::uint64_t size = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), size);
    return error == std::errc() ? std::optional(size) : std::nullopt;
}

} // namespace

DumpResult PackedDump::Open(const std::filesystem::path& path)
{
    m_path = path;
    m_ownName = Windows1252FromUtf8(Utf8FromPath(path.filename()));
    m_dataOffset = 0;
    m_members.clear();
    m_fileFailure = m_file.Open(path);
    return m_fileFailure == FileStatus::Ok ? ReadDirectory() : DumpResult::CantOpen;
}

DumpResult PackedDump::ReadDirectory()
{
    std::string probe = ReadText(m_file, kProbeBytes);
    TestFileHeader header;
    header.SetText(std::string_view(probe).substr(0, TestFileHeader::kProbeBytes));
    if (!header.IsKitbag())
        return DumpResult::NotADump;

    // The tools that read dumps have always ended the text over the last byte that they had read.
    probe.pop_back();
    header.SetText(probe);
    if (!header.HasKey("="))
        return DumpResult::NoDataPointer;
    const std::int32_t offset = header.DataOffset();
    if (offset < 0)
        return DumpResult::BadDataPointer;
    if (static_cast<std::uint64_t>(offset) > m_file.Size())
        return DumpResult::DataPointerBeyondFile;
    if (static_cast<std::size_t>(offset) > TestFileHeader::kMaxHeaderBytes)
        return DumpResult::TooLong;
    m_dataOffset = static_cast<std::uint32_t>(offset);

    header.SetText(ReadText(m_file, m_dataOffset));
    if (offset > 0 && !header.HasKey("="))
        return DumpResult::BadDataPointer;
    ReadMembers(header.Text());
    return DumpResult::Ok;
}

void PackedDump::ReadMembers(std::string_view directory)
{
    // The tag stands before the first '=', the data offset in the rest of that line.
    std::string_view rest = Behind(directory, '\n', directory.find('='));
    std::optional<std::uint64_t> position = m_dataOffset;
    while (!rest.empty()) {
        const std::size_t equals = rest.find('=');
        // What is left without a '=' is told as a member without a size, unless it is nothing.
        if (equals == std::string_view::npos && IsBlank(rest))
            return;
        const std::string_view name = rest.substr(0, equals);
        const std::string_view behindName = Behind(rest, '=', 0);
        AddMember(name, behindName.substr(0, behindName.find('\n')), position);
        rest = Behind(behindName, '\n', 0);
    }
}

void PackedDump::AddMember(
    std::string_view name, std::string_view size, std::optional<std::uint64_t>& position)
{
    PackedMember& member = m_members.emplace_back();
    member.name = name;
    member.nameFault = CheckMemberName(name, m_ownName);
    member.size = ParseSize(size);
    member.isWhole = position && member.size && *member.size <= m_file.Size() - *position;
    if (!member.isWhole) {
        position.reset();
        return;
    }
    member.offset = *position;
    *position += *member.size;
}

} // namespace vireo
