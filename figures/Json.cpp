#include "figures/Json.h"

#include "figures/FiguresResult.h"
#include "figures/Subject.h"
#include "platform/Text.h"

namespace vireo {

Json BeginObject(const Subject& subject)
{
    Json object;
    object["file"] = subject.name;
    object["kind"] = KindId(subject.Kind());
    return object;
}

Json FileText(std::string_view windows1252)
{
    return Utf8FromWindows1252(windows1252);
}

std::string ToLine(const Json& object)
{
    constexpr int kOnOneLine = -1;
    return object.dump(kOnOneLine, ' ', false, Json::error_handler_t::replace);
}

FileResult ToFileResult(const FiguresResult& result)
{
    return {result.object.is_null() ? std::string() : ToLine(result.object), result.failure};
}

} // namespace vireo
