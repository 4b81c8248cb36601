#include "platform/Message.h"
#include "tests/TempFolder.h"
#include "tests/viewers/DialogTest.h"
#include "tests/viewers/WidgetTest.h"
#include "viewers/controls/CBasicTestControl.h"
#include "viewers/controls/CScrollTextControl.h"
#include "viewers/controls/Fonts.h"
#include "viewers/controls/QtText.h"

#include <QApplication>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTimer>

#include <gtest/gtest.h>

namespace vireo {
namespace {

/// A plot with a text in it, that remembers the pages it printed.
class PrintedControl : public CBasicTestControl {
public:
    PrintedControl()
    {
        resize(401, 201);
        Initialise();
    }

    std::vector<int> pages;

    void PrintPage(QPainter& dc, QSizeF printable, int pageIndex) override
    {
        pages.push_back(pageIndex);
        CBasicTestControl::PrintPage(dc, printable, pageIndex);
    }
    bool DrawContent(QPainter& dc, int width, int height) override
    {
        dc.setFont(FontOfHeight(kSansFace, 14));
        dc.drawText(
            QRect(0, 0, width, height), Qt::AlignCenter, QStringLiteral("Text in the plot"));
        return true;
    }
};

/// The text of a PDF file, laid out as on the page; nothing where the tool is not installed.
std::optional<QString> TextOfPdf(const std::filesystem::path& file)
{
    QProcess tool;
    tool.start(QStringLiteral("pdftotext"),
        {QStringLiteral("-layout"), QStringFromPath(file), QStringLiteral("-")});
    if (!tool.waitForFinished() || tool.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return QString::fromUtf8(tool.readAllStandardOutput());
}

class PrintTest : public testing::Test {
protected:
    /// A printer that writes a PDF file in the test's folder.
    void PrintTo(const char* name, QPrinter& printer)
    {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QStringFromPath(m_folder.Path() / name));
    }

    TempFolder m_folder;
    PrintedControl m_control;
};

TEST_F(PrintTest, TextStaysText)
{
    m_control.SetHeaderLines({"Scanner Name:  Model 1", "Date:          01.02.03", "", "hidden"});
    QPrinter printer(QPrinter::HighResolution);
    PrintTo("page.pdf", printer);
    ASSERT_TRUE(m_control.PrintPages(printer));
    const auto text = TextOfPdf(m_folder.Path() / "page.pdf");
    if (!text)
        GTEST_SKIP() << "pdftotext (poppler-utils) is not installed";
    EXPECT_TRUE(text->contains(QRegularExpression(QStringLiteral("Scanner Name: +Model 1"))))
        << text->toStdString();
    EXPECT_TRUE(text->contains(QStringLiteral("Text in the plot")));
    EXPECT_FALSE(text->contains(QStringLiteral("hidden")));
    // A picture of the plot would be an image in the file.
    EXPECT_EQ(
        TempFolder::Read(m_folder.Path() / "page.pdf").find("/Subtype /Image"), std::string::npos);
}

TEST_F(PrintTest, SeventyHeaderLinesAreTheMost)
{
    std::vector<std::string> lines;
    for (int line = 1; line <= 75; ++line)
        lines.push_back("line " + std::to_string(line) + " end");
    m_control.SetHeaderLines(lines);
    QPrinter printer(QPrinter::HighResolution);
    PrintTo("page.pdf", printer);
    ASSERT_TRUE(m_control.PrintPages(printer));
    const auto text = TextOfPdf(m_folder.Path() / "page.pdf");
    if (!text)
        GTEST_SKIP() << "pdftotext (poppler-utils) is not installed";
    EXPECT_TRUE(text->contains(QStringLiteral("line 1 end")));
    // The last lines lie beyond the paper's lower margin, where a printer's own clipping decides.
    EXPECT_FALSE(text->contains(QStringLiteral("line 71 end")));
}

TEST_F(PrintTest, PagesAreJobsOfTheirOwnFromLastToFirst)
{
    m_control.SetPageCount(2);
    QPrinter printer(QPrinter::HighResolution);
    PrintTo("two.pdf", printer);
    EXPECT_TRUE(m_control.PrintPages(printer));
    EXPECT_EQ(m_control.pages, (std::vector<int>{1, 0}));
    EXPECT_EQ(printer.docName(), QStringLiteral("Printing Tqx Test Document"));
    EXPECT_TRUE(std::filesystem::exists(m_folder.Path() / "two.pdf"));
    EXPECT_TRUE(std::filesystem::exists(m_folder.Path() / "two-2.pdf"));
}

TEST_F(PrintTest, AFailedJobIsToldAndTheOthersAreTried)
{
    m_control.SetPageCount(2);
    QPrinter printer(QPrinter::HighResolution);
    PrintTo("no such folder/two.pdf", printer);
    EXPECT_FALSE(m_control.PrintPages(printer));
    EXPECT_TRUE(m_control.pages.empty());
}

TEST_F(PrintTest, ADocumentHoldsAllPages)
{
    m_control.SetPageCount(3);
    {
        QPdfWriter writer(QStringFromPath(m_folder.Path() / "all.pdf"));
        EXPECT_TRUE(m_control.PrintDocument(writer));
    }
    EXPECT_EQ(m_control.pages, (std::vector<int>{2, 1, 0}));
    const std::string pdf = TempFolder::Read(m_folder.Path() / "all.pdf");
    EXPECT_NE(pdf.find("/Count 3"), std::string::npos);
}

TEST_F(PrintTest, ThePlotKeepsItsProportions)
{
    // A control of 400 x 200 on a page of 1000 x 1440: 800 x 400 below the margin of 72.
    QImage page(1000, 1440, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter dc(&page);
    m_control.PrintPage(dc, QSizeF(1000, 1440), 0);
    EXPECT_EQ(InkOf(page), QRect(100, 72, 800, 400));

    // One header line moves it down by the height of a line.
    page.fill(Qt::white);
    m_control.SetHeaderLines({"."});
    m_control.PrintPage(dc, QSizeF(1000, 1440), 0);
    EXPECT_EQ(page.pixelColor(899, 92), QColor(Qt::black));
    EXPECT_EQ(page.pixelColor(899, 91), QColor(Qt::white));
}

TEST_F(PrintTest, CancellingPrintsNothing)
{
    MessageRecorder recorder;
    InNextWindow<QPrintDialog>([](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.fromPage(), 1);
        EXPECT_EQ(dialog.toPage(), 1);
        EXPECT_EQ(dialog.minPage(), 1);
        EXPECT_EQ(dialog.maxPage(), 1);
        dialog.reject();
    });
    m_control.Print();
    EXPECT_TRUE(m_control.pages.empty());
    EXPECT_TRUE(recorder.Messages().empty());
}

TEST_F(PrintTest, FailureIsTold)
{
    MessageRecorder recorder;
    InNextWindow<QPrintDialog>([](QPrintDialog& dialog) {
        dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog.printer()->setOutputFileName(QStringLiteral("/no such folder/page.pdf"));
        dialog.done(QDialog::Accepted);
    });
    m_control.Print();
    ASSERT_EQ(recorder.Messages().size(), 1u);
    EXPECT_EQ(recorder.Messages()[0].text, "Unable to print section");
    EXPECT_EQ(recorder.Messages()[0].caption, "Printer section");
    EXPECT_EQ(recorder.Messages()[0].icon, MessageIcon::Exclamation);
}

TEST_F(PrintTest, PreviewShowsTheSamePages)
{
    m_control.SetPageCount(2);
    InNextWindow<QPrintPreviewDialog>([this](QPrintPreviewDialog& dialog) {
        QApplication::processEvents();
        EXPECT_EQ(m_control.pages, (std::vector<int>{1, 0}));
        dialog.reject();
    });
    m_control.PrintPreview();
}

TEST(CScrollTextControlPrint, PrintsItsWholeTextOnPages)
{
    CScrollTextControl control;
    control.resize(300, 100);
    control.Initialise();
    control.SetHeaderLines({"Heading"});
    std::string report;
    for (int line = 1; line <= 100; ++line)
        report += "Row " + std::to_string(line) + ".\n";
    control.SetText(report);
    EXPECT_EQ(control.PageCount(), 2);

    const TempFolder folder;
    {
        QPdfWriter writer(QStringFromPath(folder.Path() / "report.pdf"));
        ASSERT_TRUE(control.PrintDocument(writer));
    }
    const auto text = TextOfPdf(folder.Path() / "report.pdf");
    if (!text)
        GTEST_SKIP() << "pdftotext (poppler-utils) is not installed";
    for (int line = 1; line <= 100; ++line)
        EXPECT_EQ(text->count(QStringLiteral("Row %1.").arg(line)), 1) << line;
    EXPECT_EQ(text->count(QStringLiteral("Heading")), 2);
}

} // namespace
} // namespace vireo
