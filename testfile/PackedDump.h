#pragma once

#include "platform/PositionalFile.h"
#include "testfile/MemberName.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// What came of reading a dump's directory.
enum class [[nodiscard]] DumpResult{
    Ok,
    CantOpen,              ///< FileFailure() says why.
    NotADump,              ///< There is no "[Kitbag]" in the first 100 bytes.
    NoDataPointer,         ///< There is no '=' in the first 200 bytes.
    BadDataPointer,        ///< The offset of the members' bytes is negative or inside its line.
    DataPointerBeyondFile, ///< The offset lies behind the end of the file.
    TooLong,               ///< The directory is longer than a header may be.
};

std::string_view Describe(DumpResult result);

/// A file inside a packed dump, as its directory tells.
struct PackedMember {
    std::string name; ///< Windows-1252, as it stands there.
    NameFault nameFault = NameFault::None;
    std::optional<std::uint64_t> size; ///< In bytes; nothing where it is no number.
    std::uint64_t offset = 0;          ///< Of its bytes in the dump; only of use when it is whole.
    /// Whether the dump holds all its bytes. A member cut off, or of no known size, takes those
    /// behind it along: nobody knows where they begin.
    bool isWhole = false;

    /// Whether a file of this name may be made.
    bool IsAccepted() const { return nameFault == NameFault::None; }
    /// The name as a path below no folder.
    std::filesystem::path FileName() const;
};

/// A packed dump: one file that carries the files of a test run. Behind the tag "[Kitbag]" and the
/// line with the offset of the data stand lines NAME=SIZE, and from that offset on the members'
/// bytes, in the order of the lines and without gaps.
///
/// A line's name ends at its first '=', wherever that is; names may hold what no file system takes.
class PackedDump {
public:
    /// How much of the file is read to find the offset of the data. Of a file that is not longer,
    /// the last byte does not count.
    static constexpr std::size_t kProbeBytes = 200;
    /// A size of more characters is no number.
    static constexpr std::size_t kMostSizeCharacters = 29;
    /// The member with the text that describes the dump, which only a test station keeps.
    static constexpr std::string_view kDescriptionMember = "Kitbag.txt";

    /// Opens a dump and reads its directory; the members' bytes stay where they are. The offset 0
    /// stands for a dump without members.
    DumpResult Open(const std::filesystem::path& path);
    FileStatus FileFailure() const { return m_fileFailure; }

    const std::filesystem::path& Path() const { return m_path; }
    std::uint32_t DataOffset() const { return m_dataOffset; }
    const std::vector<PackedMember>& Members() const { return m_members; }
    const PositionalFile& File() const { return m_file; }

private:
    DumpResult ReadDirectory();
    void ReadMembers(std::string_view directory);
    /// `position` is where the member's bytes begin, as long as that can be told.
    void AddMember(
        std::string_view name, std::string_view size, std::optional<std::uint64_t>& position);

    std::filesystem::path m_path;
    std::string m_ownName; ///< Without its folder, in Windows-1252.
    PositionalFile m_file;
    FileStatus m_fileFailure = FileStatus::Ok;
    std::uint32_t m_dataOffset = 0;
    std::vector<PackedMember> m_members;
};

} // namespace vireo
