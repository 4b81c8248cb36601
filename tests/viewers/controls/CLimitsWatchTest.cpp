#include "tests/viewers/DialogTest.h"
#include "viewers/controls/CLimitsWatch.h"
#include "viewers/controls/CVerdict_Dialog.h"
#include "viewers/controls/CViewerDialog.h"

#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace vireo {
namespace {

/// What the viewer asks, and the answers that the test gives.
struct Script {
    std::filesystem::path chosen;
    std::vector<LimitsQuestion> asked;
    std::optional<LimitsAnswer> answer;
};

class ScriptedLimits : public ViewerLimits {
public:
    explicit ScriptedLimits(Script& script) : m_script(script) { }

    std::filesystem::path Chosen() const override { return m_script.chosen; }
    void Choose(const std::filesystem::path& limits) override { m_script.chosen = limits; }
    void Ask(const LimitsQuestion& question) override
    {
        m_script.asked.push_back(question);
        m_script.answer.reset();
    }
    std::optional<LimitsAnswer> TakeAnswer() override
    {
        return std::exchange(m_script.answer, std::nullopt);
    }

private:
    Script& m_script;
};

class TestViewer : public CViewerDialog {
public:
    explicit TestViewer(Script& script)
    {
        new QVBoxLayout(this);
        OnInitDialog();
        UseLimits(std::make_unique<ScriptedLimits>(script));
        resize(400, 300);
        show();
    }
    void Show(const std::filesystem::path& file, std::int64_t line = 0)
    {
        m_file = file;
        ShownFileChanged(line);
    }
    QToolButton& Badge() const { return *findChild<QToolButton*>("verdictBadge"); }

    std::size_t marked = 0; ///< Limits shown last.

protected:
    std::filesystem::path ShownFile() const override { return m_file; }
    void ShowLimits(const std::vector<Limit>& limits) override { marked = limits.size(); }

private:
    std::filesystem::path m_file;
};

LimitsAnswer OneOfTwo()
{
    LimitsAnswer answer;
    LimitsFile limits;
    EXPECT_FALSE(limits.Parse("[noise]\naverages.red <= 4.5\nline_length > 0\n"));
    answer.limits = limits.Sections().front().limits;
    answer.verdict.emplace();
    answer.verdict->Add(answer.limits[0], "averages.<b>red</b>", 5.0);
    answer.verdict->Add(answer.limits[1], "line_length", std::int64_t{7});
    return answer;
}

TEST(LimitsWatch, WithoutLimitsNothingIsAskedOrShown)
{
    Script script;
    TestViewer viewer(script);
    viewer.Show("a.con");
    LetPass(3 * CLimitsWatch::kMilliseconds);
    EXPECT_TRUE(script.asked.empty());
    EXPECT_FALSE(viewer.Badge().isVisible());
    EXPECT_FALSE(viewer.findChild<QAction*>("clearLimits")->isEnabled());
}

TEST(LimitsWatch, TheBadgeShowsTheVerdictAndListsWhatFailed)
{
    Script script{"limits.txt", {}, {}};
    TestViewer viewer(script);
    viewer.Show("a.con", 3);
    ASSERT_TRUE(Becomes([&] { return script.asked.size() == 1; }));
    EXPECT_EQ(script.asked[0], (LimitsQuestion{"a.con", 3}));
    EXPECT_FALSE(viewer.Badge().isVisible());

    script.answer = OneOfTwo();
    ASSERT_TRUE(Becomes([&] { return viewer.Badge().isVisible(); }));
    EXPECT_EQ(viewer.Badge().text(), "Fail: 1 of 2");
    EXPECT_TRUE(viewer.Badge().toolTip().contains("averages.&lt;b&gt;red&lt;/b&gt; is 5, limit"));
    EXPECT_EQ(viewer.marked, 2U);
    EXPECT_GT(viewer.Badge().geometry().left(), viewer.width() / 2);

    QStringList row;
    QTimer::singleShot(50, [&row] {
        auto* const dialog = qobject_cast<CVerdict_Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        const auto* const table = dialog->findChild<QTableWidget*>();
        for (int column = 0; column < table->columnCount(); ++column)
            row << table->item(0, column)->text();
        EXPECT_EQ(table->rowCount(), 1);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QTest::mouseClick(&viewer.Badge(), Qt::LeftButton);
    EXPECT_EQ(row, QStringList({"averages.<b>red</b>", "5", "<= 4.5", "2"}));
}

TEST(LimitsWatch, AnotherFileHasNoVerdictOfTheOneBefore)
{
    Script script{"limits.txt", {}, {}};
    TestViewer viewer(script);
    viewer.Show("a.con");
    ASSERT_TRUE(Becomes([&] { return script.asked.size() == 1; }));
    script.answer = OneOfTwo();
    viewer.Show("b.con");
    ASSERT_TRUE(Becomes([&] { return script.asked.size() == 2; }));
    EXPECT_FALSE(viewer.Badge().isVisible());
    script.answer = LimitsAnswer{{}, std::nullopt, "It has gone"};
    ASSERT_TRUE(Becomes([&] { return viewer.Badge().isVisible(); }));
    EXPECT_EQ(viewer.Badge().text(), "Not checked");
    viewer.Show("c.con");
    EXPECT_FALSE(viewer.Badge().isVisible());
}

TEST(LimitsWatch, OnlyLimitsThatCanBeReadAreChosen)
{
    const TempFolder folder;
    const OwnSettings settings;
    const auto bad = folder.Write("bad.txt", "[noise]\nnothing > 0\n");
    const auto good = folder.Write("good & new.txt", "[noise]\naverages.red > 0\n");
    Script script;
    TestViewer viewer(script);
    viewer.Show("a.con");
    const MessageRecorder messages;
    QAction* const choose = viewer.findChild<QAction*>("chooseLimits");
    const auto chooseFile = [choose](const std::filesystem::path& file) {
        NameInNextFileDialog(file);
        choose->trigger();
    };

    chooseFile(bad);
    EXPECT_TRUE(script.chosen.empty());
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_NE(
        messages.Messages()[0].text.find("Line 2: There is no figure nothing"), std::string::npos);

    chooseFile(good);
    EXPECT_EQ(script.chosen, good);
    EXPECT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(choose->text(), "Choose Li&mits... (good && new.txt)");
    EXPECT_TRUE(Becomes([&] { return script.asked.size() == 1; }));
}

TEST(LimitsWatch, WithoutLimitsAgainVerdictAndMarksGo)
{
    Script script{"limits.txt", {}, {}};
    TestViewer viewer(script);
    viewer.Show("a.con");
    ASSERT_TRUE(Becomes([&] { return script.asked.size() == 1; }));
    script.answer = OneOfTwo();
    ASSERT_TRUE(Becomes([&] { return viewer.marked == 2; }));
    EXPECT_TRUE(viewer.findChild<QAction*>("chooseLimits")->text().contains("limits.txt"));
    viewer.findChild<QAction*>("clearLimits")->trigger();
    EXPECT_TRUE(script.chosen.empty());
    EXPECT_FALSE(viewer.Badge().isVisible());
    EXPECT_EQ(viewer.marked, 0U);
    LetPass(2 * CLimitsWatch::kMilliseconds);
    EXPECT_EQ(script.asked.size(), 1U);
}

} // namespace
} // namespace vireo
