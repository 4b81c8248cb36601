#pragma once

#include <QScrollArea>

namespace vireo {

/// Holds a panel of controls beside the plots: at least as wide as the panel needs, and scrolled up
/// and down where the window is too low for it.
class SidePanelArea : public QScrollArea {
    Q_OBJECT

public:
    explicit SidePanelArea(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace vireo
