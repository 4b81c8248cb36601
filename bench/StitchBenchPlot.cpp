#include "bench/MeasuredPlot.h"
#include "platform/Path.h"
#include "viewers/stitch/StitchData.h"

namespace vireo {

LoadedPlot LoadStitchPlot(const BenchSettings& settings)
{
    StitchData data;
    const StitchResult result = data.Read(PathFromUtf8(settings.file));
    if (result != StitchResult::Ok)
        return {nullptr, data.DescribeFailure(result)};
    return PicturePlotOf(data.Picture(), settings);
}

} // namespace vireo
