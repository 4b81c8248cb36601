#include "errors/ErrorReport.h"
#include "platform/Message.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

namespace vireo {
namespace {

TEST(ErrorTable, HoldsAllRows)
{
    const auto rows = ErrorTable();
    EXPECT_EQ(rows.size(), 568U);
    std::array<int, 4> severities{};
    for (const ErrorRow& row : rows)
        ++severities.at(row.severity);
    EXPECT_EQ(severities, (std::array{143, 57, 366, 2}));
    EXPECT_EQ(std::ranges::count_if(
                  rows, [](const ErrorRow& row) { return row.sheetText != row.plateText; }),
        41);
    EXPECT_EQ(rows.front().code, 101U);
}

TEST(ErrorTable, FindsTheTextForTheKindOfScanner)
{
    struct Row {
        std::uint32_t code;
        const char* sheet;
        const char* plate;
    };
    const Row rows[] = {
        {119, "Unknown Error.", "Unknown Error."},
        {609, "Unable to position the sheet.\nPlease reinsert it.",
            "Unable to position the plate.\nPlease reposition it."},
        {850, "Paper jam. Please reinsert sheet and try again.",
            "Table jam. Please reposition plate and try again."},
        {1100, "Scan Line positioning test failed", "Scan Line positioning test failed"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(LookUpError(row.code, ScannerFeed::Sheet), row.sheet) << row.code;
        EXPECT_EQ(LookUpError(row.code, ScannerFeed::Plate), row.plate) << row.code;
    }
    for (const std::uint32_t code : {0U, 2U, 102U, 4294967295U})
        EXPECT_FALSE(LookUpError(code, ScannerFeed::Sheet)) << code;
    EXPECT_EQ(ErrorClassName(FindError(105)->severity), "Warnings");
    EXPECT_EQ(ErrorClassName(4), "");
}

class ErrorReportTest : public testing::Test {
protected:
    ErrorReportTest()
    {
        log_Init("Test", ".log", folder.Path());
        setup.lastErrorFile = folder.Path() / "LastError.txt";
    }
    ~ErrorReportTest() override { log_Close(); }

    std::string LogText() const { return TempFolder::Read(folder.Path() / "Test.log"); }
    std::string Message() const
    {
        return messages.Messages().empty() ? "" : messages.Messages().back().text;
    }

    TempFolder folder;
    MessageRecorder messages;
    ErrorReportSetup setup{
        ErrorTextLibrary(VIREO_ERROR_LIBRARY), ScannerFeed::Plate, [] { return 611U; }, {}};
};

TEST_F(ErrorReportTest, CodeZeroIsNoError)
{
    setup.scannerLastError = [] { return 0U; };
    for (const std::uint32_t code : {0U, 2U})
        EXPECT_EQ(ReportError(setup, code, "detail", "text"), "");
    EXPECT_EQ(LogText(), "");
    EXPECT_FALSE(std::filesystem::exists(setup.lastErrorFile));
    EXPECT_EQ(Message(), "");
}

TEST_F(ErrorReportTest, ReportsTheLibrarysTextInLogAndFile)
{
    EXPECT_EQ(ReportError(setup, 850, "Load", "given"), "Translated 850");
    EXPECT_EQ(ReportError(setup, 2, "", ""), "Translated 611") << "the scanner library's own code";
    EXPECT_NE(
        LogText().find("ERROR 850 (User Correctable): Translated 850 [Load]\n"), std::string::npos);
    EXPECT_NE(LogText().find("ERROR 611 (R&D Correctable): Translated 611\n"), std::string::npos);
    const std::string blocks = TempFolder::Read(setup.lastErrorFile);
    EXPECT_NE(blocks.find("Error:        0x 352\nText:         'Translated 850'\n\nDate:"),
        std::string::npos);
    EXPECT_EQ(Message(), "");
}

TEST_F(ErrorReportTest, WithoutTheLibraryTheTablesTextIsReported)
{
    struct Row {
        std::uint32_t code;
        const char* given;
        const char* reported;
    };
    const Row rows[] = {{850, "given", "Table jam. Please reposition plate and try again."},
        {100000, "given", "given"}, {100000, "", "Unknown Error."}};
    setup.library = ErrorTextLibrary(folder.Path() / "ErrorOut.DLL");
    for (const Row& row : rows)
        EXPECT_EQ(ReportError(setup, row.code, "", row.given), row.reported);
    EXPECT_EQ(messages.Messages().size(), 3U);
    EXPECT_EQ(Message(), "Could not find ErrorOut.dll");
    EXPECT_NE(LogText().find("ERROR 100000: given\n"), std::string::npos);

    setup.library = ErrorTextLibrary(VIREO_EMPTY_LIBRARY);
    EXPECT_EQ(ReportError(setup, 101, "", "given").substr(0, 17), "No scanner found.");
    EXPECT_EQ(Message(), "Could not find 'FunctionReturnErrorInstance'");
}

TEST_F(ErrorReportTest, ThePlainEntryTranslatesToo)
{
    EXPECT_EQ(ErrorTextLibrary(VIREO_ERROR_LIBRARY).TranslatedText(7), "Plain 7");
    EXPECT_EQ(ErrorTextLibrary(VIREO_EMPTY_LIBRARY).TranslatedText(7), std::nullopt);
    EXPECT_EQ(Message(), "Could not find 'GetTranslatedText'");
    EXPECT_EQ(ErrorTextLibrary(folder.Path() / "none").TranslatedText(7), std::nullopt);
    EXPECT_EQ(Message(), "Error in load of ErrorOut.dll");
}

TEST_F(ErrorReportTest, AFileThatCannotBeWrittenIsOnlyLogged)
{
    setup.lastErrorFile = folder.Path();
    EXPECT_EQ(ReportError(setup, 101, "", ""), "Translated 101");
    EXPECT_NE(LogText().find("cannot be kept in LastError.txt"), std::string::npos);
}

TEST(ErrorBlock, HasTheFormOfTheFile)
{
    const CDateTime when{2026, 3, 1, 9, 5, 7, 0};
    EXPECT_EQ(ErrorBlock(when, 0x65, "No scanner found."),
        "Date:         1/3-2026\nTime:         09:05:07\nError:        0x  65\n"
        "Text:         'No scanner found.'\n\n");
}

} // namespace
} // namespace vireo
