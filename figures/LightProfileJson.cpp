#include "figures/LightProfileJson.h"

#include "figures/Subject.h"
#include "platform/Text.h"
#include "viewers/lightprofile/LightProfileData.h"

namespace vireo {

std::string OpenLightProfile(const Subject& subject, std::int64_t line, LightProfileData& data)
{
    using Accept = LightProfileData::Accept;
    const LightProfileResult result =
        data.Read(subject.path, subject.isForced ? Accept::AnyFile : Accept::LightProfiles);
    if (result != LightProfileResult::Ok)
        return data.DescribeFailure(result);
    if (line >= data.Lines().LineCount())
        return Format("There is no line %lld: the file has %lld, counted from 0",
            static_cast<long long>(line), static_cast<long long>(data.Lines().LineCount()));
    return {};
}

} // namespace vireo
