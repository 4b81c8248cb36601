#include "app/FileKind.h"
#include "fuzz/FuzzInput.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>

namespace vireo {

namespace {

void Check(std::span<const std::uint8_t> bytes, const char* name)
{
    const Recognition found = Recognise(bytes, name);
    Require(KindFromId(KindId(found.kind)) == found.kind);
    Require(found.dataOffset.has_value() == (found.container != Container::Tiff));
    const bool opensNothing = found.kind == FileKind::Unknown || found.kind == FileKind::Kitbag;
    Require(found.viewers.empty() == opensNothing);

    const auto probe = bytes.first(std::min(bytes.size(), TestFileHeader::kProbeBytes));
    Require(Recognise(probe, name).kind == found.kind);
    Require(BeginsAsKitbag(probe) == BeginsAsKitbag(bytes));
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    for (const char* name : {"a.con", "b.TIF", ""})
        vireo::Check({data, size}, name);
    return 0;
}
