#include "viewers/oscilloscope/PauseSpinBox.h"

#include <QLineEdit>

#include <algorithm>

namespace vireo {

PauseSpinBox::PauseSpinBox(QWidget* parent) : QSpinBox(parent)
{
    // A value must not pass through 200 while somebody types 2000.
    setKeyboardTracking(false);
    setCorrectionMode(QAbstractSpinBox::CorrectToPreviousValue);
    setGroupSeparatorShown(false);
}

int PauseSpinBox::TypedValue() const
{
    return lineEdit()->text().trimmed().toInt();
}

QValidator::State PauseSpinBox::validate(QString& text, int& position) const
{
    // The base refuses digits that would pass the maximum, and so would turn 99999 into 9999.
    const QValidator::State state = QSpinBox::validate(text, position);
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    constexpr qsizetype kMostDigits = 9;
    if (state == QValidator::Invalid && text.size() <= kMostDigits
        && std::all_of(text.begin(), text.end(), isDigit))
        return QValidator::Intermediate;
    return state;
}

} // namespace vireo
