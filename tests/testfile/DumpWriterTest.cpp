#include "testfile/DumpUnpacker.h"
#include "testfile/DumpWriter.h"
#include "tests/DumpFile.h"
#include "tests/TempFolder.h"

namespace vireo {
namespace {

class DumpWriterTest : public testing::Test {
protected:
    PackReport Pack(const std::vector<std::filesystem::path>& files)
    {
        return PackDump(files, m_folder.Path() / "dump.con", m_progress);
    }
    std::string Written() const { return TempFolder::Read(m_folder.Path() / "dump.con"); }

    TempFolder m_folder;
    WorkProgress m_progress;
};

TEST_F(DumpWriterTest, WritesTheFormatToTheLetter)
{
    std::filesystem::create_directory(m_folder.Path() / "sub");
    const auto first = m_folder.Write("sub/Größe.con", "first");
    const auto second = m_folder.Write("b.txt", "");
    const auto third = m_folder.Write("c", std::string("1\0=\n", 4));
    EXPECT_TRUE(Pack({first, second, third}).IsWritten());
    EXPECT_EQ(Written(),
        std::string("[Kitbag]\nDataPointer=        56\nGr\xF6\xDF"
                    "e.con=5\nb.txt=0\nc=4\nfirst1\0=\n",
            65));
    EXPECT_EQ(m_progress.Fraction(), 1.0);
}

TEST_F(DumpWriterTest, UnpackingGivesTheFilesBack)
{
    DumpFile expected;
    std::vector<std::filesystem::path> files;
    for (const std::size_t size : {0U, 1U, 9'000'000U, 255U}) {
        std::string content(size, 'x');
        for (std::size_t i = 0; i < size; ++i)
            content[i] = static_cast<char>(i * i % 251);
        const std::string name = "file " + std::to_string(size);
        files.push_back(m_folder.Write(name, content));
        expected.members.emplace_back(name, content);
    }
    ASSERT_TRUE(Pack(files).IsWritten());
    EXPECT_TRUE(Written() == expected.Bytes());
    PackedDump dump;
    ASSERT_EQ(dump.Open(m_folder.Path() / "dump.con"), DumpResult::Ok);
    const auto target = m_folder.Path() / "out";
    std::filesystem::create_directory(target);
    EXPECT_TRUE(UnpackDump(dump, target, DumpDescription::Kept, m_progress).IsComplete());
    for (const auto& [name, content] : expected.members)
        EXPECT_TRUE(TempFolder::Read(target / name) == content) << name;
}

TEST_F(DumpWriterTest, AFileThatCannotBePackedKeepsTheDumpFromBeingWritten)
{
    m_folder.Write("dump.con", "old");
    std::filesystem::create_directory(m_folder.Path() / "sub");
    const auto good = m_folder.Write("good.con", "x");
    std::vector<std::pair<std::filesystem::path, const char*>> rows = {
        {m_folder.Path() / "none", "No such file"},
        {m_folder.Path() / "sub", "Is a folder"},
        {m_folder.Path() / "dump.con", "The dump would replace the file itself"},
        {m_folder.Write("sub/GOOD.con", "y"), "A file of the same name is packed already"},
        {m_folder.Write("a=b", ""), "The name has a '=', which ends names in a dump"},
        {m_folder.Write("Ж", ""), "The name has characters that are not in Windows code page 1252"},
        {m_folder.Write("sub/Dump.con", ""),
            "Cannot be packed: the name is that of the dump itself"},
    };
#ifndef _WIN32
    rows.push_back({m_folder.Write("nul", ""), "Cannot be packed: the name is that of a device"});
    rows.push_back({m_folder.Write("\xFF\xFE", ""),
        "The name has characters that are not in Windows code page 1252"});
#endif
    std::vector<std::filesystem::path> files = {good};
    for (const auto& row : rows)
        files.push_back(row.first);
    const PackReport report = Pack(files);
    EXPECT_FALSE(report.IsWritten());
    ASSERT_EQ(report.failures.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(report.failures[i].file, i + 1);
        EXPECT_EQ(report.failures[i].reason, rows[i].second);
    }
    EXPECT_EQ(Written(), "old");
}

TEST_F(DumpWriterTest, TellsWhyTheDumpCannotBeWritten)
{
    const std::filesystem::path files[] = {m_folder.Write("a", "x")};
    EXPECT_EQ(PackDump(files, m_folder.Path(), m_progress).status, FileStatus::IsFolder);
    EXPECT_EQ(
        PackDump(files, m_folder.Path() / "no" / "d", m_progress).status, FileStatus::NotFound);
}

} // namespace
} // namespace vireo
