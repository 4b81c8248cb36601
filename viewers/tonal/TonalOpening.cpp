#include "viewers/tonal/TonalOpening.h"

#include "platform/AtomicFile.h"
#include "platform/Log.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vireo {

namespace {

std::string NameOf(const std::filesystem::path& path)
{
    return '"' + Utf8FromPath(path.filename()) + '"';
}

/// Copies the file as it was read and puts the corrected record in its place.
TonalOpening Rewrite(const std::filesystem::path& path, TonalResolutionData& data)
{
    std::filesystem::path copy = path;
    copy += "_Original";
    const std::string fault =
        "The green channel of " + NameOf(path) + " had the known fault of version 1";
    const std::string asItWas = fault + ". It is shown corrected, but the file stays as it was: ";

    FileStatus status = WriteFileAtomically(copy, data.FileText());
    if (status != FileStatus::Ok)
        return {TonalResult::Ok, TonalFileChange::NotRewritten,
            asItWas + NameOf(copy) + " cannot be written (" + std::string(Describe(status)) + ")."};
    status = data.Write(path);
    if (status != FileStatus::Ok)
        return {TonalResult::Ok, TonalFileChange::NotRewritten,
            asItWas + "it cannot be written (" + std::string(Describe(status)) + ")."};
    return {TonalResult::Ok, TonalFileChange::Rewritten,
        fault + " and has been corrected in the file. As it was it is kept as " + NameOf(copy)
            + "."};
}

TonalOpening Delete(const std::filesystem::path& path)
{
    const std::string reason =
        NameOf(path) + " held no measurement (its scanner name is \"Default\") and ";
    const FileStatus status = RemoveFile(path);
    if (status == FileStatus::Ok)
        return {TonalResult::NoMeasurement, TonalFileChange::Deleted, reason + "has been deleted."};
    return {TonalResult::NoMeasurement, TonalFileChange::NotDeleted,
        reason + "should be deleted, but that failed (" + std::string(Describe(status)) + ")."};
}

} // namespace

TonalOpening OpenTonalFile(const std::filesystem::path& path, TonalResolutionData& data)
{
    TonalOpening opening{data.Read(path), TonalFileChange::None, {}};
    if (opening.result == TonalResult::Ok && data.IsCorrected())
        opening = Rewrite(path, data);
    else if (opening.result == TonalResult::NoMeasurement)
        opening = Delete(path);
    if (opening.change != TonalFileChange::None)
        Log_Msg_Txt("Tonal resolution:", Windows1252FromUtf8(opening.notice));
    return opening;
}

} // namespace vireo
