#pragma once

#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

namespace vireo {

// The edge between the 8-bit text of files and messages and the Unicode of the user interface.

/// 8-bit Windows-1252 text as Unicode.
QString QStringFromText(std::string_view windows1252);

/// Unicode as 8-bit Windows-1252; characters outside the code page become '?'.
std::string TextFromQString(const QString& text);

/// A path as the user interface shows and stores it, with the system's separators.
QString QStringFromPath(const std::filesystem::path& path);

/// The path that a file dialog, a dropped URL or a line of text names; any character survives.
std::filesystem::path PathFromQString(const QString& path);

/// Text whose lines can all be drawn about `length` characters wide: words longer than that, which
/// paths are, go on in a new line behind one of their separators, or anywhere when they have none.
QString WithLongWordsBroken(const QString& text, qsizetype length);

} // namespace vireo
