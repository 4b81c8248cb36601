#include "figures/AdjustmentJson.h"

#include "figures/Subject.h"
#include "platform/Text.h"
#include "viewers/adjustment/AdjustmentData.h"

#include <algorithm>

namespace vireo {

std::string OpenAdjustment(const Subject& subject, std::int64_t line, AdjustmentData& data)
{
    const AdjustmentKind kind = subject.Kind() == FileKind::AdjustCenterCcd
        ? AdjustmentKind::AdjustCenterCcd
        : AdjustmentKind::VerticalCameraVerification;
    const AdjustmentResult result = data.Read(subject.path, kind, subject.isForced);
    if (result != AdjustmentResult::Ok)
        return data.DescribeFailure(result);
    // Without lines the header is what there is to show.
    const std::int64_t lines = std::max<std::int64_t>(data.Lines().LineCount(), 1);
    if (line >= lines)
        return Format("There is no line %lld: the file has %lld, counted from 0",
            static_cast<long long>(line), static_cast<long long>(lines));
    return {};
}

} // namespace vireo
