#pragma once

#include <QSpinBox>

namespace vireo {

/// The field of the pause between lines. Any number can be typed; one outside the range is never
/// taken: the value before it comes back when the field is left.
class PauseSpinBox : public QSpinBox {
    Q_OBJECT

public:
    explicit PauseSpinBox(QWidget* parent = nullptr);

    /// The number that stands in the field now, in the range or not; 0 for none.
    int TypedValue() const;

protected:
    QValidator::State validate(QString& text, int& position) const override;
};

} // namespace vireo
