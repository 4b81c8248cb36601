#include "testfile/CPicture.h"

#include "imagefile/ColorDepth.h"
#include "platform/PrivateProfile.h"
#include "platform/Text.h"

#include <algorithm>
#include <limits>
#include <ostream>
#include <string>

namespace vireo {

CPicture::CPicture(const CPicture& other)
{
    CopyFrom(other);
}

CPicture& CPicture::operator=(const CPicture& other)
{
    if (!CopyFrom(other))
        m_ptrBuffer.reset();
    return *this;
}

CPicture::Buffer CPicture::MakeBuffer(std::int64_t length)
{
    // No machine has as much memory as this, and some allocators end the program when asked for it.
    constexpr std::int64_t kMostBytes = std::int64_t{1} << 40;
    const auto bytes = static_cast<std::uint64_t>(length);
    if (length >= kMostBytes || bytes > std::numeric_limits<std::size_t>::max())
        return nullptr;
    return Buffer(static_cast<std::uint8_t*>(std::calloc(static_cast<std::size_t>(bytes), 1)));
}

void CPicture::Alloc(std::int64_t length)
{
    m_ptrBuffer.reset();
    m_iBufferLength = 0;
    m_iDataLength = 0;
    if (length < 1)
        throw CPictureException("Error Alloc Memory CPicture::Alloc, zero length");
    m_ptrBuffer = MakeBuffer(length);
    if (!m_ptrBuffer)
        throw CPictureException("Error Alloc Memory CPicture::Alloc");
    m_iBufferLength = length;
}

bool CPicture::CopyFrom(const CPicture& other)
{
    if (this == &other)
        return m_iDataLength >= 1;
    m_BiC = other.m_BiC;
    m_iWidth = other.m_iWidth;
    m_iWidth3 = other.m_iWidth3;
    m_iHeight = other.m_iHeight;
    m_iResolution = other.m_iResolution;
    m_PicData = other.m_PicData;
    if (other.m_iDataLength < 1) {
        m_iDataLength = other.m_iDataLength;
        return false;
    }
    Alloc(other.m_iBufferLength);
    m_iDataLength = other.m_iDataLength;
    std::ranges::copy(other.Pixels(), m_ptrBuffer.get());
    return true;
}

std::int64_t CPicture::LinePitch() const
{
    const auto bytes = [this](ColorDepth depth) {
        return static_cast<std::int64_t>(
            BytesPerRow(depth, static_cast<std::uint32_t>(std::max(m_iWidth, 0))));
    };
    switch (m_PicData) {
    case PIC_BW:
        return bytes(ColorDepth::Bilevel);
    case PIC_GRAY:
        return bytes(ColorDepth::Gray8);
    case PIC_RGB:
        return bytes(ColorDepth::Rgb8);
    case PIC_RGB16:
        return bytes(ColorDepth::Rgb16);
    default:
        return 0;
    }
}

double CPicture::PixelsToMillimetres(double pixels) const
{
    constexpr double kMillimetresPerInch = 25.4;
    return pixels * kMillimetresPerInch / m_iResolution;
}

void CPicture::WriteInfo(std::ostream* stream) const
{
    if (!stream)
        return;
    *stream << "[PictureInfo]\n";
    for (std::size_t camera = 0; camera < m_BiC.size(); ++camera)
        *stream << Format("m_BiC[%d]=%d\n", static_cast<int>(camera), m_BiC[camera]);
    *stream << Format("m_iWidth=%d\nm_iWidth3=%d\nm_iHeight=%d\nm_iResolution=%d\n", m_iWidth,
        m_iWidth3, m_iHeight, m_iResolution);
    switch (m_PicData) {
    case PIC_BW:
        *stream << "m_PicData=PIC_BW\n";
        break;
    case PIC_GRAY:
        *stream << "m_PicData=PIC_GRAY\n";
        break;
    case PIC_RGB:
        *stream << "m_PicData=PIC_RGB\n";
        break;
    case PIC_UNDEFINED:
        *stream << "m_PicData=PIC_UNDEFINED\n";
        break;
    default:
        break;
    }
    *stream << "[PictureInfo End]\n";
}

void CPicture::ReadInfo(const std::filesystem::path& file)
{
    constexpr std::size_t kBufferSize = 100;
    constexpr std::string_view kMissing = "-1";
    const PrivateProfile profile(file);
    const auto read = [&](const std::string& key, std::string_view missing) {
        return profile.ReadString("PictureInfo", key, missing, kBufferSize);
    };
    for (std::size_t camera = 0; camera < m_BiC.size(); ++camera) {
        std::string value = read(Format("m_BiC[%d]", static_cast<int>(camera)), kMissing);
        if (value == kMissing)
            value = read(std::string("m_i") + static_cast<char>('A' + camera), kMissing);
        m_BiC[camera] = ParseInteger(value);
    }
    m_iWidth = ParseInteger(read("m_iWidth", kMissing));
    m_iWidth3 = ParseInteger(read("m_iWidth3", kMissing));
    m_iHeight = ParseInteger(read("m_iHeight", kMissing));
    m_iResolution = ParseInteger(read("m_iResolution", kMissing));

    constexpr std::size_t kTellingCharacter = 4;
    const std::string type = read("m_PicData", "PIC_RGB");
    switch (type.size() > kTellingCharacter ? type[kTellingCharacter] : '\0') {
    case 'B':
        m_PicData = PIC_BW;
        break;
    case 'G':
        m_PicData = PIC_GRAY;
        break;
    case 'R':
        m_PicData = PIC_RGB;
        break;
    case 'U':
        m_PicData = PIC_UNDEFINED;
        break;
    default:
        break;
    }
}

} // namespace vireo
