#include "viewers/controls/CWait_Dialog.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <semaphore>
#include <stdexcept>
#include <thread>

namespace vireo {
namespace {

/// Runs work that ends when the dialog is visible and `look` has been called with it, in the
/// dialog's own events, or when it is cancelled.
class SlowRun {
public:
    explicit SlowRun(CWait_Dialog& dialog) : m_dialog(dialog) { }

    bool Run(const std::function<void()>& look, std::uint64_t done = 0, std::uint64_t total = 0)
    {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            // The bar is set by a timer of its own.
            const auto* bar = m_dialog.findChild<QProgressBar*>();
            if (!m_dialog.isVisible() || (total != 0 && bar->maximum() == 0))
                return;
            timer.stop();
            look();
            m_looked.release();
        });
        timer.start(5);
        return m_dialog.Run([&](WorkProgress& progress) {
            progress.SetTotal(total);
            progress.SetDone(done);
            m_looked.acquire();
            m_sawCancel = progress.IsCancelled();
        });
    }
    bool SawCancel() const { return m_sawCancel; }

private:
    CWait_Dialog& m_dialog;
    std::binary_semaphore m_looked{0};
    bool m_sawCancel = false;
};

TEST(CWait_Dialog, WorkRunsBesideTheDialogAndItsBarFollows)
{
    CWait_Dialog dialog("View Stitching Picture", "Please wait while loading");
    const auto* bar = dialog.findChild<QProgressBar*>();
    SlowRun run(dialog);
    EXPECT_TRUE(run.Run(
        [&] {
            EXPECT_EQ(dialog.windowTitle(), "View Stitching Picture");
            EXPECT_EQ(dialog.Text(), "Please wait while loading");
            EXPECT_TRUE(dialog.isModal());
            EXPECT_EQ(4 * bar->value(), bar->maximum());
        },
        std::uint64_t{1} << 40, std::uint64_t{1} << 42));
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(run.SawCancel());
}

TEST(CWait_Dialog, AnUnknownTotalShowsABusyBar)
{
    CWait_Dialog dialog("t", "text");
    EXPECT_TRUE(
        SlowRun(dialog).Run([&] { EXPECT_EQ(dialog.findChild<QProgressBar*>()->maximum(), 0); }));
}

TEST(CWait_Dialog, ShortWorkShowsNothing)
{
    CWait_Dialog dialog("t", "text");
    std::thread::id worker;
    EXPECT_TRUE(dialog.Run([&](WorkProgress&) { worker = std::this_thread::get_id(); }));
    EXPECT_FALSE(dialog.testAttribute(Qt::WA_WState_Created)) << "no window was ever made";
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_NE(worker, std::thread::id());
}

struct ClosingCase {
    const char* name;
    CWait_Dialog::Cancelling cancelling;
    std::function<void(CWait_Dialog&)> close;
    bool cancels;
};

class ClosingTest : public testing::TestWithParam<ClosingCase> { };

TEST_P(ClosingTest, AsksTheWorkToStopAndWaitsForIt)
{
    CWait_Dialog dialog("t", "text", GetParam().cancelling);
    SlowRun run(dialog);
    const bool ended = run.Run([&] {
        GetParam().close(dialog);
        EXPECT_TRUE(dialog.isVisible()) << "the work has not ended yet";
    });
    EXPECT_EQ(ended, !GetParam().cancels);
    EXPECT_EQ(run.SawCancel(), GetParam().cancels);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(dialog.Run([](WorkProgress&) {})) << "the next run begins anew";
}

void ClickCancel(CWait_Dialog& dialog)
{
    QTest::mouseClick(dialog.findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_FALSE(dialog.findChild<QPushButton*>()->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(All, ClosingTest,
    testing::Values(ClosingCase{"Button", CWait_Dialog::Cancelling::Offered, ClickCancel, true},
        ClosingCase{"Escape", CWait_Dialog::Cancelling::Offered,
            [](CWait_Dialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }, true},
        ClosingCase{"Window", CWait_Dialog::Cancelling::Offered,
            [](CWait_Dialog& dialog) { dialog.close(); }, true},
        ClosingCase{"NotOffered", CWait_Dialog::Cancelling::NotOffered,
            [](CWait_Dialog& dialog) {
                EXPECT_EQ(dialog.findChild<QPushButton*>(), nullptr);
                QTest::keyClick(&dialog, Qt::Key_Escape);
                dialog.close();
            },
            false}),
    [](const auto& test) { return test.param.name; });

TEST(CWait_Dialog, AFaultOfTheWorkIsThrownOn)
{
    CWait_Dialog dialog("t", "text");
    EXPECT_THROW(
        dialog.Run([](WorkProgress&) { throw std::runtime_error("fault"); }), std::runtime_error);
}

} // namespace
} // namespace vireo
