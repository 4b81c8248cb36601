#include "viewers/controls/ChoiceGroup.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QRadioButton>

#include <algorithm>

namespace vireo {

ChoiceGroup::ChoiceGroup(QWidget* parent)
    : QGroupBox(parent),
      m_buttons(new QButtonGroup(this)),
      m_layout(new QGridLayout(this))
{
    connect(m_buttons, &QButtonGroup::idClicked, this, &ChoiceGroup::ChosenByUser);
}

QRadioButton& ChoiceGroup::Add(
    int number, const QString& name, const QString& text, const QString& tip)
{
    auto* const button = new QRadioButton(text, this);
    button->setObjectName(name);
    button->setToolTip(tip);
    const auto index = static_cast<int>(m_buttons->buttons().size());
    m_buttons->addButton(button, number);
    m_layout->addWidget(button, index / m_iColumns, index % m_iColumns);
    return *button;
}

void ChoiceGroup::Offer(int number, bool offered)
{
    QAbstractButton* const button = m_buttons->button(number);
    button->setVisible(offered);
    button->setEnabled(offered);
    const auto buttons = m_buttons->buttons();
    setVisible(std::ranges::any_of(
        buttons, [](const QAbstractButton* each) { return !each->isHidden(); }));
}

bool ChoiceGroup::Offers(int number) const
{
    const QAbstractButton* const button = m_buttons->button(number);
    return button && button->isEnabled();
}

void ChoiceGroup::Choose(int number)
{
    if (QAbstractButton* const button = m_buttons->button(number))
        button->setChecked(true);
}

int ChoiceGroup::Chosen() const
{
    return m_buttons->checkedId();
}

} // namespace vireo
