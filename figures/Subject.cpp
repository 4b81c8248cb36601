#include "figures/Subject.h"

#include "platform/Path.h"

namespace vireo {

FileStatus RecogniseSubject(const std::string& name, std::optional<FileKind> kind, Subject& subject)
{
    subject.name = name;
    subject.path = PathFromUtf8(name);
    const FileStatus status =
        RecogniseFile(subject.path, subject.recognition, KitbagRule::FirstLine);
    subject.isForced = kind.has_value();
    if (kind)
        subject.recognition.kind = *kind;
    return status;
}

std::string CannotBe(FileKind kind, std::string_view done)
{
    if (kind == FileKind::Unknown)
        return kUnknownKind;
    return std::string("Files of kind ").append(KindId(kind)).append(" cannot be ").append(done);
}

} // namespace vireo
