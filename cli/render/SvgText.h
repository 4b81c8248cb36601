#pragma once

#include <QByteArray>
#include <QString>
#include <Qt>

class QBrush;
class QColor;
class QPainterPath;
class QPen;
class QRectF;
class QTransform;

namespace vireo {

// What SVG calls the things that painters draw with. Attributes begin with a blank, so that they
// can be strung together.

QByteArray Attribute(const char* name, const QByteArray& value);
/// A number to seven digits.
QByteArray Attribute(const char* name, double value);

/// A text as it stands between tags or within quotes; characters that XML does not take become
/// U+FFFD.
QByteArray Escaped(const QString& text);

/// A colour as what the attribute "fill" or "stroke" paints with, and how opaque that is (0 to 1).
QByteArray Paint(const char* name, const QColor& colour, double opacity);
QByteArray FillOf(const QBrush& brush, double opacity);
QByteArray StrokeOf(const QPen& pen, double opacity);

/// Nothing for the identity.
QByteArray TransformOf(const QTransform& transform);
QByteArray BoxOf(const QRectF& box);

/// The commands of a path, as the attribute "d" has them.
QByteArray CommandsOf(const QPainterPath& path);
/// Which of a path's areas are inside, for the attribute "fill-rule" or "clip-rule".
QByteArray RuleOf(const char* name, Qt::FillRule rule);

} // namespace vireo
