#include "app/FileMessage.h"

#include "platform/Message.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vireo {

std::string MessageText(const std::filesystem::path& file)
{
    auto shown = file;
    return Windows1252FromUtf8(Utf8FromPath(shown.make_preferred()));
}

void ShowCannotOpen(const std::filesystem::path& file, std::string_view reason)
{
    ShowMessage(
        "Vireo cannot open this file:\n" + MessageText(file) + "\n\n" + std::string(reason) + ".");
}

} // namespace vireo
