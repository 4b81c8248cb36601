#include "viewers/controls/QtMessageSink.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vireo {
namespace {

/// Where a message came, and what it said.
struct Shown {
    QWidget* parent = nullptr;
    QString text;
    QString title;
};

Shown Show(std::string_view text)
{
    Shown shown;
    QTimer::singleShot(0, qApp, [&shown] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        shown = {box->parentWidget(), box->text(), box->windowTitle()};
        QTest::keyClick(box, Qt::Key_Return);
    });
    QtMessageSink().ShowMessage(text, "", MessageIcon::Exclamation);
    return shown;
}

TEST(QtMessageSink, MessagesComeOverTheWindowInSight)
{
    QWidget start;
    start.setWindowOpacity(0.0);
    start.show();
    start.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&start));
    EXPECT_EQ(Show("none").parent, nullptr);
    QDialog viewer;
    viewer.setAttribute(Qt::WA_ShowWithoutActivating);
    viewer.show();
    start.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&start));
    EXPECT_EQ(Show("not active").parent, &viewer);
    viewer.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&viewer));
    EXPECT_EQ(Show("active").parent, &viewer);
    start.setWindowOpacity(1.0);
    start.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&start));
    EXPECT_EQ(Show("both in sight").parent, &start);
}

TEST(QtMessageSink, LongPathsAreShownInSeveralLines)
{
    const std::string folder(60, 'a');
    const Shown shown = Show("/" + folder + "/" + folder + "\nNo such file <b>");
    EXPECT_EQ(shown.text.toStdString(), "/" + folder + "/\n" + folder + "\nNo such file <b>");
    EXPECT_EQ(shown.title, "Vireo 6");
}

} // namespace
} // namespace vireo
