#include "cli/render/SvgText.h"

#include <QBrush>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QTransform>

#include <algorithm>

namespace vireo {

namespace {

QByteArray Number(double value)
{
    constexpr int kDigits = 7;
    return QByteArray::number(value, 'g', kDigits);
}

/// What XML 1.0 takes in no form. (Halves of surrogate pairs, which it does not take alone, are
/// replaced where the text becomes UTF-8.)
bool IsForbidden(QChar character)
{
    const char16_t code = character.unicode();
    return (code < u' ' && code != u'\t' && code != u'\n' && code != u'\r') || code >= 0xfffe;
}

} // namespace

QByteArray Attribute(const char* name, const QByteArray& value)
{
    return QByteArray(" ") + name + "=\"" + value + '"';
}

QByteArray Attribute(const char* name, double value)
{
    return Attribute(name, Number(value));
}

QByteArray Escaped(const QString& text)
{
    QString allowed = text;
    std::ranges::replace_if(allowed, IsForbidden, QChar(QChar::ReplacementCharacter));
    return allowed.toHtmlEscaped().toUtf8();
}

QByteArray Paint(const char* name, const QColor& colour, double opacity)
{
    QByteArray text = Attribute(name, colour.name().toLatin1());
    opacity *= colour.alphaF();
    if (opacity < 1.0)
        text += Attribute((QByteArray(name) + "-opacity").constData(), opacity);
    return text;
}

QByteArray FillOf(const QBrush& brush, double opacity)
{
    return brush.style() == Qt::NoBrush ? Attribute("fill", "none")
                                        : Paint("fill", brush.color(), opacity);
}

namespace {

const char* CapOf(const QPen& pen)
{
    switch (pen.capStyle()) {
    case Qt::FlatCap:
        return "butt";
    case Qt::RoundCap:
        return "round";
    default:
        return "square";
    }
}

QByteArray JoinOf(const QPen& pen)
{
    switch (pen.joinStyle()) {
    case Qt::RoundJoin:
        return Attribute("stroke-linejoin", "round");
    case Qt::MiterJoin:
    case Qt::SvgMiterJoin:
        return Attribute("stroke-linejoin", "miter")
            + Attribute("stroke-miterlimit", std::max(pen.miterLimit(), 1.0));
    default:
        return Attribute("stroke-linejoin", "bevel");
    }
}

QByteArray DashesOf(const QPen& pen, double width)
{
    QByteArray lengths;
    for (const double length : pen.dashPattern())
        lengths += (lengths.isEmpty() ? "" : ",") + Number(length * width);
    if (lengths.isEmpty())
        return {};
    return Attribute("stroke-dasharray", lengths)
        + Attribute("stroke-dashoffset", pen.dashOffset() * width);
}

} // namespace

QByteArray StrokeOf(const QPen& pen, double opacity)
{
    if (pen.style() == Qt::NoPen)
        return Attribute("stroke", "none");
    // The width 0 means one pixel however much is enlarged.
    const double width = pen.widthF() > 0.0 ? pen.widthF() : 1.0;
    QByteArray text = Paint("stroke", pen.color(), opacity) + Attribute("stroke-width", width)
        + Attribute("stroke-linecap", CapOf(pen)) + JoinOf(pen) + DashesOf(pen, width);
    if (pen.isCosmetic())
        text += Attribute("vector-effect", "non-scaling-stroke");
    return text;
}

QByteArray TransformOf(const QTransform& transform)
{
    if (transform.isIdentity())
        return {};
    QByteArray numbers;
    for (const double value : {transform.m11(), transform.m12(), transform.m21(), transform.m22(),
             transform.dx(), transform.dy()})
        numbers += (numbers.isEmpty() ? "" : ",") + Number(value);
    return Attribute("transform", "matrix(" + numbers + ')');
}

namespace {

QByteArray PointOf(const QPainterPath::Element& point)
{
    return Number(point.x) + ',' + Number(point.y);
}

} // namespace

QByteArray CommandsOf(const QPainterPath& path)
{
    QByteArray text;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo())
            text += 'M';
        else
            text += element.isCurveTo() ? 'C' : element.isLineTo() ? 'L' : ' ';
        text += PointOf(element);
    }
    return text;
}

QByteArray BoxOf(const QRectF& box)
{
    return Attribute("x", box.x()) + Attribute("y", box.y()) + Attribute("width", box.width())
        + Attribute("height", box.height());
}

QByteArray RuleOf(const char* name, Qt::FillRule rule)
{
    return rule == Qt::OddEvenFill ? Attribute(name, "evenodd") : QByteArray();
}

} // namespace vireo
