#include "tests/faults/FaultTools.h"

#include "tests/TempFolder.h"

#include <cstdlib>
#include <fstream>

namespace vireo {

FolderContent ContentOf(const std::filesystem::path& folder)
{
    FolderContent content;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file())
            content[entry.path().lexically_relative(folder).string()] =
                TempFolder::Read(entry.path());
    }
    return content;
}

void Refill(const std::filesystem::path& folder, const FolderContent& content)
{
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    for (const auto& [name, bytes] : content)
        std::ofstream(folder / name, std::ios::binary) << bytes;
}

bool IsTemporary(const std::string& name)
{
    return name.find(".vireo-") != std::string::npos;
}

std::string Sample(const std::string& name)
{
    return TempFolder::Read(std::filesystem::path(VIREO_SAMPLES) / name);
}

int Rounds(int usual)
{
    const char* const factor = std::getenv("VIREO_FAULT_ROUNDS");
    return usual * (factor != nullptr ? std::max(std::atoi(factor), 1) : 1);
}

} // namespace vireo
