#include "app/FileKind.h"
#include "app/ViewerTable.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "scanner/ScannerChoice.h"
#include "tests/TempFolder.h"
#include "viewers/controls/PictureMark.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <set>

using namespace vireo;

TEST(ViewerTableTest, AViewerIsGivenTheFileTheTableAndTheParent)
{
    ViewerTable table;
    std::filesystem::path opened;
    ViewerHost* host = nullptr;
    table.Add("COther_Dialog", [](const auto&, ViewerHost&, QWidget*) { FAIL(); });
    table.Add("CStarTest_Dialog", [&](const auto& file, ViewerHost& from, QWidget*) {
        opened = file;
        host = &from;
    });
    EXPECT_TRUE(table.Has("CStarTest_Dialog"));
    EXPECT_TRUE(table.OpenViewer("CStarTest_Dialog", "run.con", nullptr));
    EXPECT_EQ(opened, "run.con");
    EXPECT_EQ(host, &table);
}

TEST(ViewerTableTest, APictureWithMarksGoesToThePictureViewer)
{
    ViewerTable table;
    const MarkedPicture picture{"raw.tif", {{3, 4}, {5, 6}}, {7, 8}};
    MessageRecorder messages;
    EXPECT_FALSE(table.OpenPicture(picture, nullptr));
    EXPECT_EQ(messages.Messages().size(), 1U);
    MarkedPicture shown;
    table.SetPictureViewer([&](const MarkedPicture& given, QWidget*) { shown = given; });
    EXPECT_TRUE(table.OpenPicture(picture, nullptr));
    EXPECT_EQ(shown.file, "raw.tif");
    EXPECT_EQ(shown.marks.size(), 2U);
    EXPECT_EQ(shown.middle.line, 8);
    EXPECT_EQ(messages.Messages().size(), 1U);
}

TEST(ViewerTableTest, AMissingViewerGivesOneMessageWithTheKindAndTheFile)
{
    ViewerTable table;
    MessageRecorder messages;
    EXPECT_FALSE(table.Has("CStarTest_Dialog"));
    EXPECT_FALSE(table.OpenViewer("CStarTest_Dialog", "run.con", nullptr));
    ASSERT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(messages.Messages()[0].text, "Vireo cannot show star test files yet.\n\nrun.con");
}

TEST(ViewerTableTest, EveryViewerThatAFileCanAskForHasItsOwnMessage)
{
    const ViewerTable table;
    MessageRecorder messages;
    std::set<std::string_view> viewers = {"CLPF_Dialog", "CNCTest_Dialog", "CPictureView_Dialog"};
    for (const DispatchRow& row : DispatchTable())
        if (!row.viewer.empty())
            viewers.insert(row.viewer);
    std::set<std::string> texts;
    for (const std::string_view viewer : viewers) {
        messages.Clear();
        ViewerTable::ShowNoViewer(viewer, {});
        texts.insert(messages.Messages().at(0).text);
        EXPECT_EQ(messages.Messages()[0].text.find("unknown"), std::string::npos) << viewer;
    }
    EXPECT_EQ(texts.size(), viewers.size());
}

TEST(ProgramViewersTest, TheLiveTestsRunOnTheSimulatedScanner)
{
    const TempFolder settings;
    for (const char* name : {"XDG_CONFIG_HOME", "APPDATA"})
        qputenv(name, QByteArray::fromStdString(Utf8FromPath(settings.Path())));
    KeepSimulated(ScannerSettingsFile(), true);
    const MessageRecorder messages; // The station has no limit for the noise.
    for (const char* viewer : {"CLPF_Dialog", "CNCTest_Dialog"}) {
        ViewerTable viewers = ProgramViewers();
        EXPECT_TRUE(viewers.Prepare(viewer, nullptr));
        std::string opened;
        QTimer::singleShot(0, [&] {
            if (QWidget* const dialog = QApplication::activeModalWidget()) {
                opened = dialog->metaObject()->className();
                dialog->close();
            }
        });
        EXPECT_TRUE(viewers.OpenViewer(viewer, {}, nullptr));
        EXPECT_EQ(opened, std::string("vireo::") + viewer);
    }
}
