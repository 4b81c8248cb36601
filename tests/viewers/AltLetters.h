#pragma once

#include <QAbstractButton>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace vireo {

/// Fails where a letter stands twice among texts: Alt with it, or the letter in an open menu, would
/// choose one of them only, or none.
inline void ExpectDifferentLetters(const QStringList& texts)
{
    std::map<QString, QString> users;
    for (const QString& text : texts) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (letter.isEmpty())
            continue;
        EXPECT_TRUE(users.emplace(letter, text).second)
            << letter.toStdString() << ": " << users[letter].toStdString() << " and "
            << text.toStdString();
    }
    EXPECT_FALSE(users.empty());
}

/// The letters of a window that is shown: those of its controls and of its menu bar differ, and so
/// do those of each menu.
inline void ExpectDifferentLetters(const QWidget& window)
{
    QStringList texts;
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible())
            texts << button->text();
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->isVisible() && label->buddy())
            texts << label->text();
    const auto* const bar = window.findChild<QMenuBar*>();
    ASSERT_NE(bar, nullptr);
    for (const QAction* title : bar->actions()) {
        texts << title->text();
        QStringList commands;
        for (const QAction* command : title->menu()->actions())
            commands << command->text();
        ExpectDifferentLetters(commands);
    }
    ExpectDifferentLetters(texts);
}

} // namespace vireo
