#pragma once

#include "platform/PositionalFile.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace vireo {

/// What a file holds.
enum class FileKind {
    Unknown,
    Oscilloscope,
    Mtf,
    Stitch,
    Noise,
    LightProfile,
    Kitbag,
    AdjustCenterCcd,
    VerticalCameraVerification,
    StarTest,
    TonalResolution,
    Tiff,
};

/// How a file's own description is stored.
enum class Container { Text, Binary, Tiff };

/// One row of the dispatch table: a section tag, the kind it stands for and the viewer that opens
/// it. The rows stand in the order in which the tags are searched; the first found decides.
struct DispatchRow {
    std::string_view tag;
    FileKind kind;
    std::string_view viewer; ///< Class name of the dialog; empty for a packed dump.
};
std::span<const DispatchRow> DispatchTable();

/// A kind's fixed names.
struct KindNames {
    FileKind kind;
    std::string_view id;    ///< As the command line writes it: "light-profile".
    std::string_view title; ///< As people read it: "light profile".
};
std::span<const KindNames> AllKinds();
std::string_view KindId(FileKind kind);
std::string_view KindTitle(FileKind kind);
std::optional<FileKind> KindFromId(std::string_view id);

/// What the first bytes of a file say.
struct Recognition {
    FileKind kind = FileKind::Unknown;
    Container container = Container::Binary;
    /// Dialog classes in opening order; empty when nothing opens.
    std::vector<std::string_view> viewers;
    /// Text: the offset as the header gives it, unchecked; binary: 48; TIFF: none.
    std::optional<std::int64_t> dataOffset;
};

/// The viewers of a file without a tag and without a known old type: the text of its first bytes is
/// tested once more, each test by itself, so that several can match and then open one after the
/// other.
std::vector<std::string_view> FallbackViewers(std::string_view text);

/// Recognises a file by its first 100 bytes, or as many as there are, and its name: section tags
/// first, then TIFF (by its first bytes or its extension), then the old 48-byte header.
Recognition Recognise(std::span<const std::uint8_t> firstBytes, const std::filesystem::path& name);

/// Whether the first line of a file is "[Kitbag]"; such a file is a packed dump even where a
/// member's tag lies within the first 100 bytes and decides which viewer opens.
bool BeginsAsKitbag(std::span<const std::uint8_t> firstBytes);

/// What decides for a file whose first line is "[Kitbag]".
enum class KitbagRule {
    DispatchOrder, ///< The first tag found, as for every file: the viewer.
    FirstLine,     ///< It is a packed dump: the command-line program.
};

/// Recognises a file on disk.
FileStatus RecogniseFile(const std::filesystem::path& path, Recognition& recognition,
    KitbagRule rule = KitbagRule::DispatchOrder);

} // namespace vireo
