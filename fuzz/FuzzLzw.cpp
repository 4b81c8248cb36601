#include "fuzz/FuzzDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    vireo::DecodeInput(vireo::TifCompression::kLzw, {bytes, size});
    return 0;
}
