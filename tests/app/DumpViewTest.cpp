#include "app/DumpView.h"
#include "tests/DumpFile.h"
#include "tests/TempFolder.h"

namespace vireo {
namespace {

TEST(DumpView, FollowsWhatTheDumpHolds)
{
    const std::string profile = "[Light Profile]\nDataPointer=        40\n";
    const std::pair<const char*, const char*> files[] = {
        {"noise.con", "[Noise Test]\n"}, {"b.con", profile.c_str()}, {"a.con", profile.c_str()}};
    const TempFolder folder;
    DumpFile dump;
    for (const auto& [name, content] : files) {
        folder.Write(name, content);
        dump.members.emplace_back(name, content);
    }
    const auto path = folder.Write("dump.con", DumpFile().Bytes());
    EXPECT_EQ(ViewOfUnpackedDump(path).viewer, "COscilloscope_Dialog") << "nothing to show";

    folder.Write("dump.con", dump.Bytes());
    EXPECT_EQ(ViewOfUnpackedDump(path).viewer, "CView_LPF_Dialog");
    EXPECT_EQ(ViewOfUnpackedDump(path).input, folder.Path() / "b.con") << "in the dump's order";
    dump.members.insert(dump.members.begin(), {"../a.con", ""});
    folder.Write("dump.con", dump.Bytes());
    EXPECT_EQ(ViewOfUnpackedDump(path).input, folder.Path() / "b.con");

    folder.Write("Oscil_300.con", "");
    EXPECT_EQ(ViewOfUnpackedDump(path).viewer, "COscilloscope_Dialog");
    EXPECT_EQ(ViewOfUnpackedDump(path).input, folder.Path());
}

} // namespace
} // namespace vireo
