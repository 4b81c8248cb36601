#include "platform/HandOver.h"

#include "platform/KnownFolders.h"
#include "platform/posix/SystemError.h"

#include <unistd.h>

namespace vireo {

FileStatus HandOver(const std::filesystem::path& program, const std::vector<std::string>& arguments)
{
    std::vector<std::string> texts{ProgramPath().string()};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    execv(program.c_str(), pointers.data());
    return StatusFromError(errno);
}

} // namespace vireo
