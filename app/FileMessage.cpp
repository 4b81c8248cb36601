#include "app/FileMessage.h"

#include "platform/Message.h"
#include "platform/Path.h"

#include <string>

namespace vireo {

void ShowCannotOpen(const std::filesystem::path& file, std::string_view reason)
{
    ShowMessageInUtf8(
        "Vireo cannot open this file:\n" + ShownPath(file) + "\n\n" + std::string(reason) + ".");
}

} // namespace vireo
