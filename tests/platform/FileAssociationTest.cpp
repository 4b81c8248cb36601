#include "platform/FileAssociation.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include "platform/windows/Registry.h"

#include <windows.h>
#endif

#include <optional>
#include <string>

namespace vireo {
namespace {

#ifndef _WIN32
TEST(FileAssociation, IsTheDesktopsToChooseHere)
{
    EXPECT_EQ(UserFileAssociation(), nullptr);
}
#else

/// Works in a key of its own, which stands for the user's classes.
class FileAssociationTest : public testing::Test {
protected:
    ~FileAssociationTest() override { RemoveUserKeyWithAllBelow(m_root); }

    const std::string m_root = "Software\\VireoTest-" + std::to_string(GetCurrentProcessId());
    const std::string m_classes = m_root + "\\Classes";
    const std::string m_extension = m_classes + "\\.con";
    const AssociationSetup m_setup{
        L"C:\\Program Files\\V\u03B1\\vireo.exe", m_classes, m_root + "\\UserChoice"};
    const std::shared_ptr<FileAssociation> m_association = UserFileAssociation(m_setup);
};

TEST_F(FileAssociationTest, WritesWhatTheShellReads)
{
    EXPECT_EQ(m_association->State(), AssociationState::Off);
    ASSERT_TRUE(m_association->Set());
    EXPECT_EQ(m_association->State(), AssociationState::On);
    EXPECT_EQ(ReadUserText(m_extension, ""), "Vireo.con");
    EXPECT_TRUE(ReadUserValue(m_extension + "\\OpenWithProgids", "Vireo.con"));
    const std::string ours = m_classes + "\\Vireo.con";
    EXPECT_EQ(ReadUserText(ours, ""), "Scanner test result");
    const std::string program = "C:\\Program Files\\V\xCE\xB1\\vireo.exe";
    EXPECT_EQ(ReadUserText(ours + "\\DefaultIcon", ""), program + ",0");
    EXPECT_EQ(ReadUserText(ours + "\\shell\\open\\command", ""), '"' + program + "\" \"%1\"");
    EXPECT_FALSE(ReadUserValue(ours, "Before"));
}

TEST_F(FileAssociationTest, UndoingLeavesNothingBehind)
{
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(m_association->Set());
        ASSERT_TRUE(m_association->Undo());
        EXPECT_EQ(m_association->State(), AssociationState::Off);
        ASSERT_TRUE(RemoveEmptyUserKey(m_classes));
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, m_classes.c_str(), 0, KEY_READ, &key),
            ERROR_FILE_NOT_FOUND)
            << "the key still held something";
    }
    EXPECT_TRUE(m_association->Undo()) << "there is nothing to undo";
}

TEST_F(FileAssociationTest, UndoingBringsBackWhatWasThere)
{
    struct Row {
        const char* name;
        RegistryValue before;
    };
    const Row rows[] = {
        {"a class of another program", {REG_SZ, {'O', 0, 't', 0, 0, 0}}},
        {"with its type", {REG_EXPAND_SZ, {'%', 0, 'O', 0, '%', 0, 0, 0}}},
        {"an empty text", {REG_SZ, {0, 0}}},
    };
    for (const Row& row : rows) {
        ASSERT_TRUE(WriteUserValue(m_extension, "", row.before));
        ASSERT_TRUE(WriteUserText(m_extension, "Content Type", "text/plain"));
        ASSERT_TRUE(WriteUserText(m_extension + "\\OpenWithProgids", "Other.con", ""));
        ASSERT_TRUE(m_association->Set() && m_association->Set()) << "setting it twice";
        ASSERT_EQ(m_association->State(), AssociationState::On);
        ASSERT_TRUE(m_association->Undo());
        const auto after = ReadUserValue(m_extension, "");
        ASSERT_TRUE(after) << row.name;
        EXPECT_EQ(after->type, row.before.type) << row.name;
        EXPECT_EQ(after->bytes, row.before.bytes) << row.name;
        EXPECT_EQ(ReadUserText(m_extension, "Content Type"), "text/plain");
        EXPECT_TRUE(ReadUserValue(m_extension + "\\OpenWithProgids", "Other.con"));
        EXPECT_FALSE(ReadUserValue(m_extension + "\\OpenWithProgids", "Vireo.con"));
    }
}

TEST_F(FileAssociationTest, WhatAnotherProgramTookMeanwhileStaysItsOwn)
{
    ASSERT_TRUE(m_association->Set());
    ASSERT_TRUE(WriteUserText(m_extension, "", "Other.con"));
    EXPECT_EQ(m_association->State(), AssociationState::Off);
    ASSERT_TRUE(m_association->Undo());
    EXPECT_EQ(ReadUserText(m_extension, ""), "Other.con");
    EXPECT_FALSE(ReadUserValue(m_classes + "\\Vireo.con", ""));
}

TEST_F(FileAssociationTest, ACopyOfTheProgramElsewhereIsAnother)
{
    ASSERT_TRUE(m_association->Set());
    AssociationSetup elsewhere = m_setup;
    elsewhere.program = "D:/portable/vireo.exe";
    const auto other = UserFileAssociation(elsewhere);
    EXPECT_EQ(other->State(), AssociationState::Off);
    ASSERT_TRUE(other->Set());
    EXPECT_EQ(
        ReadUserText(m_classes + "\\Vireo.con\\DefaultIcon", ""), "D:\\portable\\vireo.exe,0");
    EXPECT_EQ(m_association->State(), AssociationState::Off);
    ASSERT_TRUE(other->Undo());
    EXPECT_FALSE(ReadUserValue(m_extension, "")) << "the first one is not there to get it back";
}

TEST_F(FileAssociationTest, ACopyGetsBackWhatAnotherOneTook)
{
    AssociationSetup present = m_setup;
    present.program = ProgramPath();
    const auto first = UserFileAssociation(present);
    ASSERT_TRUE(WriteUserText(m_extension, "", "Other.con"));
    ASSERT_TRUE(first->Set() && m_association->Set() && m_association->Set());
    ASSERT_TRUE(m_association->Undo());
    EXPECT_EQ(first->State(), AssociationState::On);
    ASSERT_TRUE(first->Undo());
    EXPECT_EQ(ReadUserText(m_extension, ""), "Other.con");

    ASSERT_TRUE(first->Set() && m_association->Set() && first->Set());
    ASSERT_TRUE(first->Undo()) << "it has taken the files back itself";
    EXPECT_EQ(ReadUserText(m_extension, ""), "Other.con");
}

TEST_F(FileAssociationTest, TheUsersOwnChoiceOverrulesIt)
{
    ASSERT_TRUE(WriteUserText(m_setup.userChoiceKey, "ProgId", "Applications\\notepad.exe"));
    EXPECT_EQ(m_association->State(), AssociationState::Off);
    ASSERT_TRUE(m_association->Set());
    EXPECT_EQ(m_association->State(), AssociationState::Overruled);
    ASSERT_TRUE(WriteUserText(m_setup.userChoiceKey, "ProgId", "vireo.CON"));
    EXPECT_EQ(m_association->State(), AssociationState::On);
}
#endif

} // namespace
} // namespace vireo
