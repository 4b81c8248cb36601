#pragma once

#include <QGroupBox>

class QButtonGroup;
class QGridLayout;
class QRadioButton;

namespace vireo {

/// A titled group of choices of which one is made, each with a number of the dialog's own.
class ChoiceGroup : public QGroupBox {
    Q_OBJECT

public:
    explicit ChoiceGroup(QWidget* parent = nullptr);

    /// So many choices stand side by side; 1 at first. To be set before any is added.
    void SetColumns(int columns) { m_iColumns = columns; }
    /// Adds a choice behind the others. Its button is named `name`.
    QRadioButton& Add(
        int number, const QString& name, const QString& text, const QString& tip = {});

    /// Offers a choice or hides it. A group that offers nothing is hidden as a whole.
    void Offer(int number, bool offered);
    bool Offers(int number) const;
    /// Makes a choice without telling.
    void Choose(int number);
    int Chosen() const;

signals:
    /// The user has chosen.
    void ChosenByUser(int number);

private:
    QButtonGroup* m_buttons;
    QGridLayout* m_layout;
    int m_iColumns = 1;
};

} // namespace vireo
