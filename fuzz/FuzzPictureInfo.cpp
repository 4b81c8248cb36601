#include "fuzz/FuzzInput.h"
#include "testfile/CPicture.h"

#include <sstream>

namespace vireo {
namespace {

bool SameInfo(const CPicture& left, const CPicture& right)
{
    return left.m_BiC == right.m_BiC && left.m_iWidth == right.m_iWidth
        && left.m_iWidth3 == right.m_iWidth3 && left.m_iHeight == right.m_iHeight
        && left.m_iResolution == right.m_iResolution && left.m_PicData == right.m_PicData;
}

} // namespace
} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vireo;
    CPicture picture;
    picture.m_PicData = CPicture::PIC_GRAY;
    picture.ReadInfo(InputFile({data, size}));
    Require(picture.BufferLength() == 0 && picture.LinePitch() >= 0);
    // Whatever was read is written so that it reads back. A count of -1 stands for a missing one,
    // for which the older key, not there now, gives -1 too.
    std::ostringstream block;
    picture.WriteInfo(&block);
    const std::string text = block.str();
    CPicture again;
    again.ReadInfo(InputFile({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}));
    Require(SameInfo(picture, again));
    return 0;
}
