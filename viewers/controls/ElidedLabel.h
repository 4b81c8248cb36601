#pragma once

#include <QLabel>

namespace vireo {

/// A line of text, taken as it stands, that may get narrower than its text: then the middle is left
/// out, for a file's name says most at its ends, and the tool tip shows the whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// What fits.
    QString ShownText() const;
};

} // namespace vireo
