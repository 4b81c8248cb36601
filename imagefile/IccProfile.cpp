#include "imagefile/IccProfile.h"

#include "imagefile/CTIFCoder.h"

#include <algorithm>
#include <string_view>

namespace vireo {

namespace {

ImageResult ReadWholeProfile(
    CIccProfileReader& profile, std::vector<std::uint8_t>& bytes, std::string& reason)
{
    // ICC.1, 7.2: the header, and in it the signature that every profile has.
    constexpr std::size_t kHeaderBytes = 128;
    constexpr std::size_t kSignaturePlace = 36;
    constexpr std::string_view kSignature = "acsp";
    const std::uint32_t size = profile.GetProfileSize();
    if (size > kMostIccProfileBytes || !AllocateZeroed(bytes, size)) {
        reason = "the icc-profile is too large";
        return ImageResult::TifOutOfMemory;
    }
    for (std::size_t done = 0; done < size;) {
        const std::size_t count = profile.ReadProfile(std::span(bytes).subspan(done));
        if (count == 0) {
            reason = "it ends too early";
            return ImageResult::CantOpenIcc;
        }
        done += count;
    }
    if (size < kHeaderBytes
        || !std::equal(kSignature.begin(), kSignature.end(), bytes.begin() + kSignaturePlace)) {
        reason = "Icc-profile unknown format";
        return ImageResult::InvalidTiffArguments;
    }
    return ImageResult::Ok;
}

} // namespace

ImageResult ReadIccProfile(
    CIccProfileReader& profile, std::vector<std::uint8_t>& bytes, std::string& reason)
{
    if (profile.OpenProfile())
        return ImageResult::CantOpenIcc;
    const ImageResult result = ReadWholeProfile(profile, bytes, reason);
    profile.CloseProfile();
    return result;
}

} // namespace vireo
