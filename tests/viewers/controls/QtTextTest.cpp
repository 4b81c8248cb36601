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

} // namespace
} // namespace vireo
