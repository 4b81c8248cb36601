#include "cli/render/SvgDevice.h"

#include "cli/render/SvgText.h"

#include <QBuffer>
#include <QFont>
#include <QImage>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>
#include <QPixmap>
#include <QTransform>

#include <cmath>
#include <span>

namespace vireo {

namespace {
constexpr int kDotsPerInch = 96;
}

/// Writes what painters draw on an SvgDevice.
class SvgEngine : public QPaintEngine {
public:
    // What is not among these, the painter makes of these, or of pictures.
    SvgEngine()
        : QPaintEngine(PrimitiveTransform | PixmapTransform | AlphaBlend | PainterPaths
            | Antialiasing | ConstantOpacity)
    {
    }

    const QByteArray& Elements() const { return m_elements; }

    bool begin(QPaintDevice*) override { return true; }
    bool end() override
    {
        CloseGroup();
        return true;
    }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& current) override
    {
        const DirtyFlags changed = current.state();
        if (changed & DirtyTransform)
            m_transform = current.transform();
        if (changed & DirtyPen)
            m_pen = current.pen();
        if (changed & DirtyBrush)
            m_brush = current.brush();
        if (changed & DirtyOpacity)
            m_opacity = current.opacity();
        if (changed & DirtyHints)
            m_isSmooth = current.renderHints() & QPainter::SmoothPixmapTransform;
        UpdateClip(current, changed);
    }

    void drawPath(const QPainterPath& path) override { WritePath(path, m_brush); }

    void drawRects(const QRectF* rects, int count) override
    {
        OpenGroup(FillOf(m_brush, m_opacity) + StrokeOf(m_pen, m_opacity));
        for (const QRectF& rect : std::span(rects, static_cast<std::size_t>(count)))
            m_elements += "<rect" + BoxOf(rect.normalized()) + "/>\n";
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(points, points + count)));
        if (mode != PolylineMode)
            path.closeSubpath();
        path.setFillRule(mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
        WritePath(path, mode == PolylineMode ? QBrush(Qt::NoBrush) : m_brush);
    }

    void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) override
    {
        drawImage(target, pixmap.toImage(), source, Qt::AutoColor);
    }

    void drawImage(const QRectF& target, const QImage& image, const QRectF& source,
        Qt::ImageConversionFlags) override
    {
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        const QRect part = source.toAlignedRect();
        if (!(part == image.rect() ? image : image.copy(part)).save(&buffer, "PNG"))
            return;
        OpenGroup({});
        m_elements += "<image" + BoxOf(target) + Attribute("preserveAspectRatio", "none")
            + Attribute("image-rendering", m_isSmooth ? "optimizeQuality" : "optimizeSpeed")
            + (m_opacity < 1.0 ? Attribute("opacity", m_opacity) : QByteArray())
            + Attribute("xlink:href", "data:image/png;base64," + png.toBase64()) + "/>\n";
    }

    void drawTextItem(const QPointF& place, const QTextItem& item) override
    {
        const QFont font = item.font();
        const double size =
            font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * kDotsPerInch / 72.0;
        OpenGroup(Paint("fill", m_pen.color(), m_opacity)
            + Attribute("font-family", Escaped(font.family())) + Attribute("font-size", size)
            + Attribute("font-weight", static_cast<double>(font.weight()))
            + (font.italic() ? Attribute("font-style", "italic") : QByteArray()));
        m_elements += "<text" + Attribute("xml:space", "preserve") + Attribute("x", place.x())
            + Attribute("y", place.y()) + '>' + Escaped(item.text()) + "</text>\n";
    }

private:
    void UpdateClip(const QPaintEngineState& current, DirtyFlags changed)
    {
        if (changed & DirtyClipPath) {
            Clip(current.clipPath(), current.clipOperation());
        } else if (changed & DirtyClipRegion) {
            QPainterPath path;
            path.addRegion(current.clipRegion());
            Clip(path, current.clipOperation());
        } else if (changed & DirtyClipEnabled) {
            m_isClipped = current.isClipEnabled();
        }
    }

    /// Clips to an area of the painter, or to what it has in common with the former one.
    void Clip(const QPainterPath& area, Qt::ClipOperation operation)
    {
        const QPainterPath path = m_transform.map(area);
        const bool isNarrower = operation == Qt::IntersectClip && m_isClipped;
        m_clip = isNarrower ? m_clip.intersected(path) : path;
        m_isClipped = operation != Qt::NoClip;
    }

    void WritePath(const QPainterPath& path, const QBrush& brush)
    {
        OpenGroup(FillOf(brush, m_opacity) + StrokeOf(m_pen, m_opacity));
        m_elements += "<path"
            + (brush == Qt::NoBrush ? QByteArray() : RuleOf("fill-rule", path.fillRule()))
            + Attribute("d", CommandsOf(path)) + "/>\n";
    }

    /// What follows is drawn with these attributes, the clip and the transform; elements that have
    /// them in common share a group.
    void OpenGroup(const QByteArray& attributes)
    {
        const QByteArray clip = ClipAttribute();
        QByteArray group = "<g" + TransformOf(m_transform) + attributes + ">\n";
        if (!clip.isEmpty())
            group = "<g" + clip + ">\n" + group;
        if (group == m_group)
            return;
        CloseGroup();
        m_elements += group;
        m_group = group;
    }

    void CloseGroup()
    {
        for (auto opened = m_group.count("<g"); opened > 0; --opened)
            m_elements += "</g>\n";
        m_group.clear();
    }

    /// Names the clip, and writes it when it is a new one. It counts in units of the drawing, so
    /// its group has no transform.
    QByteArray ClipAttribute()
    {
        if (!m_isClipped)
            return {};
        if (m_clips == 0 || m_clip != m_writtenClip) {
            CloseGroup();
            m_writtenClip = m_clip;
            m_elements += "<clipPath" + Attribute("id", "c" + QByteArray::number(++m_clips))
                + "><path" + RuleOf("clip-rule", m_clip.fillRule())
                + Attribute("d", CommandsOf(m_clip)) + "/></clipPath>\n";
        }
        return Attribute("clip-path", "url(#c" + QByteArray::number(m_clips) + ')');
    }

    QByteArray m_elements;
    QByteArray m_group; ///< Start of the open group; empty when none is.
    QTransform m_transform;
    QPen m_pen;
    QBrush m_brush;
    QPainterPath m_clip; ///< In units of the drawing.
    QPainterPath m_writtenClip;
    int m_clips = 0; ///< Written so far.
    double m_opacity = 1.0;
    bool m_isClipped = false;
    bool m_isSmooth = false;
};

SvgDevice::SvgDevice(const QSize& size, const QString& title)
    : m_size(size),
      m_title(title),
      m_engine(std::make_unique<SvgEngine>())
{
}

SvgDevice::~SvgDevice() = default;

QPaintEngine* SvgDevice::paintEngine() const
{
    return m_engine.get();
}

QByteArray SvgDevice::Bytes() const
{
    const QByteArray width = QByteArray::number(m_size.width());
    const QByteArray height = QByteArray::number(m_size.height());
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg"
        + Attribute("xmlns", "http://www.w3.org/2000/svg")
        + Attribute("xmlns:xlink", "http://www.w3.org/1999/xlink") + Attribute("version", "1.1")
        + Attribute("width", width) + Attribute("height", height)
        + Attribute("viewBox", "0 0 " + width + ' ' + height) + ">\n<title>" + Escaped(m_title)
        + "</title>\n" + m_engine->Elements() + "</svg>\n";
}

int SvgDevice::metric(PaintDeviceMetric metric) const
{
    constexpr double kMillimetresPerInch = 25.4;
    switch (metric) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmWidthMM:
        return static_cast<int>(std::lround(m_size.width() * kMillimetresPerInch / kDotsPerInch));
    case PdmHeightMM:
        return static_cast<int>(std::lround(m_size.height() * kMillimetresPerInch / kDotsPerInch));
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return kDotsPerInch;
    default:
        return QPaintDevice::metric(metric);
    }
}

} // namespace vireo
