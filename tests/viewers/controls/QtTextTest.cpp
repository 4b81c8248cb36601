#include "viewers/controls/QtText.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(QtText, EveryByteComesBack)
{
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    const QString text = QStringFromText(bytes);
    ASSERT_EQ(text.size(), 256);
    EXPECT_EQ(text[0x80], QChar(0x20AC)); // The euro sign.
    EXPECT_EQ(text[0xE4], QChar(0xE4));
    EXPECT_EQ(TextFromQString(text), bytes);
}

TEST(QtText, CharactersOutsideTheCodePageBecomeQuestionMarks)
{
    EXPECT_EQ(TextFromQString(QStringLiteral("a\u4E2Db")), "a?b");
}

TEST(QtText, PathsKeepEveryCharacter)
{
    const QString path = QStringLiteral("/tmp/\u4E2D\u00E4 #%20.con");
    EXPECT_EQ(QStringFromPath(PathFromQString(path)), path);
}

TEST(QtText, LongPathsBreakBehindASeparator)
{
    const struct {
        QString text, shown;
    } cases[] = {
        {"", ""},
        {"short words only, in a long line", "short words only, in a long line"},
        {"12345678", "12345678"},
        {"123456789", "12345678\n9"},
        {"C:\\ab\\cde\\f.con is bad", "C:\\ab\\\ncde\\\nf.con is bad"},
        {"//a/b/c/d/e/f/g/h", "//a/b/c/\nd/e/f/g/\nh"},
        {"a/ /23456789", "a/ /\n23456789"},
        // Two halves of one character stay together.
        {QStringLiteral("1234567\U0001F600z"), QStringLiteral("1234567\U0001F600\nz")},
    };
    for (const auto& each : cases)
        EXPECT_EQ(WithLongWordsBroken(each.text, 8).toStdString(), each.shown.toStdString());
}

} // namespace
} // namespace vireo
