#include "app/CRecentFilesList.h"

#include "viewers/controls/QtText.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace vireo {

namespace {
constexpr int kFolderRole = Qt::UserRole;
constexpr int kMissingRole = Qt::UserRole + 1;

constexpr int kMargin = 5;
// How strongly the quieter texts are drawn; they still have to be read.
constexpr double kFolderOpacity = 0.65;
constexpr double kMissingOpacity = 0.5;

/// Draws a file's name, and its folder in a quieter colour below it.
class TwoLineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override
    {
        const int line = option.fontMetrics.height();
        return {10 * line, 2 * line + 2 * kMargin};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override
    {
        DrawBackground(painter, option, index);
        const bool missing = index.data(kMissingRole).toBool();
        const QString name = index.data().toString();
        const int line = option.fontMetrics.height();
        QRect place = option.rect.adjusted(kMargin, kMargin, -kMargin, 0);
        place.setHeight(line);
        painter->save();
        DrawLine(painter, option, place,
            missing ? CRecentFilesList::tr("%1 (missing)").arg(name) : name,
            missing ? kMissingOpacity : 1.0);
        DrawLine(painter, option, place.translated(0, line), index.data(kFolderRole).toString(),
            missing ? kMissingOpacity : kFolderOpacity);
        painter->restore();
    }

private:
    void DrawBackground(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
    {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        row.text.clear();
        option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, option.widget);
    }

    static void DrawLine(QPainter* painter, const QStyleOptionViewItem& option, const QRect& place,
        const QString& text, double opacity)
    {
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        QColor colour = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        colour.setAlphaF(selected ? 1.0F : static_cast<float>(opacity));
        painter->setPen(colour);
        painter->drawText(place, Qt::AlignVCenter,
            option.fontMetrics.elidedText(text, Qt::ElideMiddle, place.width()));
    }
};
} // namespace

CRecentFilesList::CRecentFilesList(QWidget* parent) : QListWidget(parent)
{
    setItemDelegate(new TwoLineDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setAccessibleName(tr("Recent files"));
    connect(this, &QListWidget::itemActivated, this, &CRecentFilesList::OnItemActivated);
}

void CRecentFilesList::SetFiles(const std::vector<std::filesystem::path>& files)
{
    clear();
    m_files = files;
    for (const auto& file : m_files) {
        auto* item = new QListWidgetItem(QStringFromPath(file.filename()), this);
        item->setData(kFolderRole, QStringFromPath(file.parent_path()));
        item->setToolTip(QStringFromPath(file));
    }
}

void CRecentFilesList::MarkMissing(const std::vector<std::filesystem::path>& missing)
{
    for (std::size_t row = 0; row < m_files.size(); ++row) {
        const bool isMissing = std::ranges::find(missing, m_files[row]) != missing.end();
        item(static_cast<int>(row))->setData(kMissingRole, isMissing);
    }
}

bool CRecentFilesList::IsMissing(int row) const
{
    return item(row)->data(kMissingRole).toBool();
}

void CRecentFilesList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete) {
        RemoveCurrent();
        return;
    }
    // Enter is given to the list alone: the dialog's default button would open its file dialog too.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && currentItem() != nullptr && currentItem()->isSelected()) {
        event->accept();
        OnItemActivated(currentItem());
        return;
    }
    QListWidget::keyPressEvent(event);
}

void CRecentFilesList::contextMenuEvent(QContextMenuEvent* event)
{
    if (itemAt(event->pos()) == nullptr)
        return;
    QMenu menu(this);
    const QAction* open = menu.addAction(tr("&Open"));
    const QAction* remove = menu.addAction(tr("&Remove from List"), QKeySequence(Qt::Key_Delete));
    const QAction* chosen = menu.exec(event->globalPos());
    if (chosen == open)
        OnItemActivated(currentItem());
    else if (chosen == remove)
        RemoveCurrent();
}

void CRecentFilesList::paintEvent(QPaintEvent* event)
{
    QListWidget::paintEvent(event);
    if (count() > 0)
        return;
    QPainter painter(viewport());
    painter.setOpacity(kFolderOpacity);
    painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
        Qt::AlignCenter | Qt::TextWordWrap, tr("The files that you open are listed here."));
}

void CRecentFilesList::OnItemActivated(const QListWidgetItem* item)
{
    // A copy: choosing a file changes the list.
    if (item != nullptr)
        emit FileChosen(std::filesystem::path(m_files[static_cast<std::size_t>(row(item))]));
}

void CRecentFilesList::RemoveCurrent()
{
    if (currentItem() != nullptr)
        emit RemoveChosen(std::filesystem::path(m_files[static_cast<std::size_t>(currentRow())]));
}

} // namespace vireo
