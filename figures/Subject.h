#pragma once

#include "app/FileKind.h"
#include "platform/PositionalFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vireo {

/// A file that a program was asked about, and what its first bytes say.
struct Subject {
    std::string name; ///< As given, in UTF-8.
    std::filesystem::path path;
    Recognition recognition;
    bool isForced = false; ///< The kind was given, not recognised.

    FileKind Kind() const { return recognition.kind; }
};

/// Recognises a file, or takes it as `kind`. A file that begins as a packed dump is one, even where
/// the viewers see a member's tag first.
FileStatus RecogniseSubject(
    const std::string& name, std::optional<FileKind> kind, Subject& subject);

/// The reason to tell when a file is of no kind that is known.
inline constexpr const char* kUnknownKind = "Unknown kind of file";

/// The reason of work that was asked to stop.
inline constexpr const char* kCancelled = "Cancelled";

/// The reason to tell when a command has no way to do a kind of file, such as "Files of kind noise
/// cannot be rendered".
std::string CannotBe(FileKind kind, std::string_view done);

} // namespace vireo
