#include "cli/render/ReportLayout.h"

namespace vireo {

ReportLayout::ReportLayout(QSizeF pagePoints, double headHeight, std::span<const double> rowHeights)
    : page(pagePoints),
      m_headHeight(headHeight),
      m_firstRows{0}
{
    const double bottom = page.height() - kMargin - kFootRoom;
    double top = TableTop(0) + kHeadingsHeight;
    for (std::size_t row = 0; row < rowHeights.size(); ++row) {
        if (top + rowHeights[row] > bottom && row > m_firstRows.back()) {
            m_firstRows.push_back(row);
            top = TableTop(m_firstRows.size() - 1) + kHeadingsHeight;
        }
        top += rowHeights[row];
    }
    m_firstRows.push_back(rowHeights.size());
}

} // namespace vireo
