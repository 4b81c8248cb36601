#include "platform/Path.h"
#include "tests/viewers/DialogTest.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"

#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>

namespace vireo {
namespace {

/// Uses the file dialog as a person does, once it is there.
class FileDialogsTest : public testing::Test {
protected:
    /// Types a name and confirms; answers the question whether to replace a file with No.
    void TypeInNextDialog(const QString& name)
    {
        NameInNextFileDialog(PathFromQString(name), [this](QFileDialog& dialog) {
            start = PathFromQString(dialog.directory().absolutePath());
            QTimer::singleShot(0, &dialog, [this, &dialog] {
                if (auto* const box =
                        qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    ++questions;
                    QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton);
                    QTimer::singleShot(0, &dialog, &QDialog::reject);
                }
            });
        });
    }

    OwnSettings settings;
    TempFolder folder;
    std::filesystem::path start;
    int questions = 0;
};

TEST_F(FileDialogsTest, SavingAddsTheExtensionAndAsksBeforeItReplaces)
{
    const FileQuestion question{"Save", "Test (*.con);;All Files (*)", "con", {}};
    TypeInNextDialog("new");
    EXPECT_EQ(
        AskForFileToSave(nullptr, question, folder.Path() / "x.con"), folder.Path() / "new.con");
    EXPECT_EQ(questions, 0);

    folder.Write("old.con", "kept");
    TypeInNextDialog("old");
    EXPECT_EQ(AskForFileToSave(nullptr, question, folder.Path() / "x.con"), "");
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(TempFolder::Read(folder.Path() / "old.con"), "kept");
}

TEST_F(FileDialogsTest, TheProposedNameIsSavedAsItIs)
{
    for (const char* filter : {"Test (*.CON *.con);;All Files (*)", "Test (*.con *.CON)"}) {
        InNextWindow<QFileDialog>([](QFileDialog& dialog) {
            auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            QTest::keyClick(name, Qt::Key_Return);
        });
        const FileQuestion question{"Save", QString::fromLatin1(filter), "con", {}};
        EXPECT_EQ(AskForFileToSave(nullptr, question, folder.Path() / "Noise.con"),
            folder.Path() / "Noise.con");
    }
}

TEST_F(FileDialogsTest, AFunctionKeyRemembersItsFolder)
{
    FileQuestion question{"Load", "Test (*.con)", "con", {"F24", "StarTest"}};
    const auto file = folder.Write("a.con", "a");
    TypeInNextDialog(QStringFromPath(file));
    EXPECT_EQ(AskForFileToOpen(nullptr, question, {}), file);

    TypeInNextDialog("a.con");
    EXPECT_EQ(AskForFileToOpen(nullptr, question, {}), file);
    EXPECT_EQ(start, folder.Path());
}

} // namespace
} // namespace vireo
