#include "figures/IdentifyJson.h"

#include "figures/Json.h"
#include "figures/Subject.h"

namespace vireo {

namespace {

std::string_view ContainerName(Container container)
{
    switch (container) {
    case Container::Text:
        return "text";
    case Container::Binary:
        return "binary";
    case Container::Tiff:
        return "tiff";
    }
    return {};
}

} // namespace

FileResult IdentifyFile(const Subject& subject)
{
    const Recognition& recognition = subject.recognition;
    Json object = BeginObject(subject);
    object["viewers"] = recognition.viewers;
    object["container"] = ContainerName(recognition.container);
    object["data_offset"] = nullptr;
    if (recognition.dataOffset)
        object["data_offset"] = *recognition.dataOffset;
    return {ToLine(object), {}};
}

} // namespace vireo
