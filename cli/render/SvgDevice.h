#pragma once

#include <QByteArray>
#include <QPaintDevice>
#include <QSize>
#include <QString>

#include <memory>

namespace vireo {

class SvgEngine;

/// A device whose painters write SVG 1.1: lines and areas as paths, texts as texts in their own
/// font, pictures as PNG inside. What painters clip is clipped; QSvgGenerator does so from Qt 6.5
/// on only. The same drawing gives the same bytes, whenever it is made.
class SvgDevice : public QPaintDevice {
public:
    /// A drawing of a size in units, of which a browser shows each as one pixel (96 an inch).
    SvgDevice(const QSize& size, const QString& title);
    ~SvgDevice() override;

    QPaintEngine* paintEngine() const override;

    /// The whole file, once the painter has ended.
    QByteArray Bytes() const;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    QSize m_size;
    QString m_title;
    std::unique_ptr<SvgEngine> m_engine;
};

} // namespace vireo
