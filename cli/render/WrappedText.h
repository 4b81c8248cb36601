#pragma once

#include <QStringList>

class QFont;
class QString;

namespace vireo {

/// Breaks a text into as many lines of a width as it needs, up to `mostLines` (at least 1): between
/// words, else behind a / or \ of a path, else behind a - or _, else anywhere. What the last line
/// has no room for is left out where `elide` says. Widths are in the font's units; white space
/// counts as one blank. At least one line, which may be empty.
QStringList WrapText(
    const QString& text, const QFont& font, double width, int mostLines, Qt::TextElideMode elide);

} // namespace vireo
