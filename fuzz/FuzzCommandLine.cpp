#include "app/CommandLine.h"
#include "app/ProgramCommandLine.h"
#include "fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vireo;
    const std::string_view line = AsText({data, size});

    const std::string cut = CutFileName(line);
    Require(cut.size() <= line.size());
    Require(FileToLoad(line, [](std::string_view) { return false; }) == cut);
    const std::string existing = FileToLoad(line, [](std::string_view) { return true; });
    Require(line.find(existing) != std::string_view::npos);

    const std::string kept = CopyFileToLoad(cut);
    Require(kept.size() <= kFileToLoadCharacters);
    Require(kept.find_first_of(std::string_view("\"\0", 2)) == std::string::npos);
    Require(CopyFileToLoad(kept) == kept);

    Require(line.ends_with(BehindProgramName(line)));
    return 0;
}
