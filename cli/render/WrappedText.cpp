#include "cli/render/WrappedText.h"

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace vireo {

namespace {

/// How many characters of a text a line has room for; never part of one that is made of several.
qsizetype FittingLength(const QString& text, const QFont& font, double width)
{
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    const int length = line.textLength();
    layout.endLayout();
    return std::clamp<qsizetype>(length, 1, text.size());
}

/// Where a line best ends that has room for the first `fitting` characters of a longer text.
qsizetype BestEnd(const QString& text, qsizetype fitting)
{
    // A line that is nearly empty reads worse than a word that is broken.
    const qsizetype shortest = fitting / 3;
    const qsizetype blank = text.lastIndexOf(QLatin1Char(' '), fitting);
    if (blank > shortest)
        return blank;
    for (const QLatin1StringView separators : {QLatin1StringView("/\\"), QLatin1StringView("-_")})
        for (qsizetype end = fitting; end > shortest; --end)
            if (separators.contains(text[end - 1]))
                return end;
    return fitting;
}

} // namespace

QStringList WrapText(
    const QString& text, const QFont& font, double width, int mostLines, Qt::TextElideMode elide)
{
    const QFontMetricsF metrics(font);
    QStringList lines;
    QString rest = text.simplified();
    while (lines.size() + 1 < mostLines && metrics.horizontalAdvance(rest) > width) {
        const qsizetype end = BestEnd(rest, FittingLength(rest, font, width));
        lines.append(rest.first(end).trimmed());
        rest = rest.sliced(end).trimmed();
    }
    if (!rest.isEmpty() || lines.isEmpty())
        lines.append(metrics.elidedText(rest, elide, width));
    return lines;
}

} // namespace vireo
