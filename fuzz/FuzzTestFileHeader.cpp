#include "fuzz/FuzzInput.h"
#include "testfile/HeaderKeys.h"
#include "testfile/TestFileHeader.h"

namespace vireo {

namespace {

void ReadEverything(const TestFileHeader& header)
{
    for (const HeaderKey& key : ListHeaderKeys(header))
        Require(header.Text().find(key.name) != std::string::npos);
    for (const auto& integers : {header.CenterLines(), header.Magnification()})
        Require(integers.found || integers.value == std::array<int, 3>{});
    Require(header.IsSigned32Profile().found == header.IsSigned32Profile().value);
}

void LoadFromFile(std::span<const std::uint8_t> bytes)
{
    PositionalFile file;
    Require(file.Open(InputFile(bytes)) == FileStatus::Ok);
    TestFileHeader header;
    const HeaderResult result = header.Load(file);
    Require(!Describe(result).empty());
    if (result == HeaderResult::Ok)
        Require(header.Text().size() <= TestFileHeader::kMaxHeaderBytes);
    else
        Require(header.Text().empty());
    ReadEverything(header);

    OldFileHeader old;
    Require(old.Load(file) == (bytes.size() >= OldFileHeader::kBytes));
}

void FixUp(TestFileHeader header)
{
    const std::size_t equals = header.Text().find('=');
    const std::size_t length = header.Text().size();
    const bool hasRoom =
        equals != std::string::npos && length - equals > TestFileHeader::kDataOffsetCharacters;
    header.FixUpDataOffset();
    Require(header.Text().size() == length);
    if (hasRoom)
        Require(header.DataOffset() == static_cast<std::int32_t>(length));
    header.OverwriteKitbagTag(4711);
    Require(header.DataOffset() == 4711);
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span bytes(data, size);
    vireo::TestFileHeader header;
    header.SetText(vireo::AsText(bytes));
    vireo::ReadEverything(header);
    vireo::FixUp(header);
    vireo::LoadFromFile(bytes);
    return 0;
}
