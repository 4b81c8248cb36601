#include "viewers/controls/Fonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

QStringList Candidates(const QString& face)
{
    // The bitmap face "MS Sans Serif" itself is passed over: it cannot be drawn at any size.
    if (face == QLatin1String(kSansFace)) {
        return {QStringLiteral("Microsoft Sans Serif"), QStringLiteral("Liberation Sans"),
            QStringLiteral("Arial"), QStringLiteral("DejaVu Sans")};
    }
    if (face == QLatin1String(kMonospacedFace)) {
        return {face, QStringLiteral("Liberation Mono"), QStringLiteral("DejaVu Sans Mono")};
    }
    return {face};
}

QString FirstInstalled(const QStringList& families)
{
    const auto installed = std::find_if(families.begin(), families.end(),
        [](const QString& family) { return QFontDatabase::hasFamily(family); });
    return installed == families.end() ? families.front() : *installed;
}

/// Asking the font database takes long; faces are few and fonts do not come and go.
QString InstalledFamily(const char* face)
{
    static QHash<QString, QString> found;
    const QString asked = QString::fromLatin1(face);
    auto family = found.constFind(asked);
    if (family == found.constEnd())
        family = found.insert(asked, FirstInstalled(Candidates(asked)));
    return *family;
}

} // namespace

QFont FontOfHeight(const char* face, double heightPixels, int weight)
{
    QFont font(InstalledFamily(face));
    font.setStyleHint(qstrcmp(face, kMonospacedFace) == 0 ? QFont::Monospace : QFont::SansSerif);
    font.setPixelSize(std::max(static_cast<int>(std::lround(heightPixels)), 1));
    font.setWeight(static_cast<QFont::Weight>(std::clamp(weight, 1, 1000)));
    // Widths rounded to the pixels of a screen would look uneven on paper.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

QFont FontOfLineHeight(const char* face, double heightPixels, int weight)
{
    // Measured on a big font, where rounding does not matter.
    constexpr double kMeasuredHeight = 1000.0;
    const QFontMetricsF metrics(FontOfHeight(face, kMeasuredHeight, weight));
    const double emShare = kMeasuredHeight / (metrics.ascent() + metrics.descent());
    return FontOfHeight(face, std::floor(heightPixels * emShare), weight);
}

} // namespace vireo
