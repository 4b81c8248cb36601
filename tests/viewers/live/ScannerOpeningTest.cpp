#include "scanner/ScannerChoice.h"
#include "tests/viewers/live/LiveTests.h"
#include "viewers/live/ScannerOpening.h"

#include <QMessageBox>

namespace vireo {
namespace {

class ScannerOpeningTest : public LiveDialogTest<> {
protected:
    /// Presses buttons of the question, one each time that it comes.
    void Answer(QList<QString> buttons)
    {
        auto* const timer = new QTimer(&owner);
        QObject::connect(timer, &QTimer::timeout, [this, buttons]() mutable {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr || box == last || buttons.isEmpty())
                return;
            texts.push_back(box->text().toStdString());
            const QString wanted = buttons.takeFirst();
            for (QAbstractButton* const button : box->buttons())
                if (button->text().remove(QLatin1Char('&')).contains(wanted)) {
                    last = box;
                    QTest::mouseClick(button, Qt::LeftButton);
                    return;
                }
            ADD_FAILURE() << "no button " << wanted.toStdString();
            box->reject();
        });
        timer->start(1);
    }

    std::filesystem::path file = settings.Path() / "Vireo.ini";
    QObject owner;
    QWidget* last = nullptr;
    std::vector<std::string> texts;
};

TEST_F(ScannerOpeningTest, WithoutAScannerError101IsReportedAndTheUserMayLeave)
{
    Answer({"Cancel"});
    EXPECT_FALSE(OpenChosenScanner(file, nullptr));
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].rfind("No scanner found.", 0), 0U);
    ExpectMessage("Could not find ErrorOut.dll");
    EXPECT_NE(TempFolder::Read(settings.Path() / "LastError.txt")
                  .find("Error:        0x  65\nText:         'No scanner found."),
        std::string::npos);
}

TEST_F(ScannerOpeningTest, TheSimulatedScannerCanBeChosenInstead)
{
    Answer({"Simulated"});
    const auto opened = OpenChosenScanner(file, nullptr);
    ASSERT_TRUE(opened);
    EXPECT_TRUE(opened->device->IsSimulated());
    EXPECT_TRUE(ReadScannerChoice(file).isSimulated) << "and is kept";
}

TEST_F(ScannerOpeningTest, TryingAgainFindsAScannerThatHasBeenConnected)
{
    const auto library = folder.Path() / "late.dll";
    settings.Write("Vireo.ini", "[Scanner]\nLibrary=" + Utf8FromPath(library) + "\n");
    QTimer::singleShot(0, [&] { std::filesystem::copy_file(TestScannerLibrary("Good"), library); });
    Answer({"Again"});
    const auto opened = OpenChosenScanner(file, nullptr);
    ASSERT_TRUE(opened);
    EXPECT_FALSE(opened->device->IsSimulated());
    EXPECT_EQ(texts.size(), 1U);
}

TEST_F(ScannerOpeningTest, ASimulationThatThereIsNotOffersNone)
{
    settings.Write("Vireo.ini", "[Scanner]\nSimulated=1\nSimulatedType=77\n");
    Answer({"Cancel"});
    EXPECT_FALSE(OpenChosenScanner(file, nullptr));
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0],
        "TaskInitializeScanner: Scanner model not supported by current setup (unknown model).");
}

} // namespace
} // namespace vireo
