#include "fuzz/FuzzDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    DecodeInput(TifCompression::kModifiedHuffman, {bytes, size});
    DecodeInput(TifCompression::kGroup4, {bytes, size});
    return 0;
}
