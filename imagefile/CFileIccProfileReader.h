#pragma once

#include "imagefile/CIccProfileReader.h"
#include "platform/PositionalFile.h"

#include <filesystem>

namespace vireo {

/// An ICC profile in a file. A name that is no full path, one that begins with neither a separator
/// nor a drive, is looked up in the system's folders of colour profiles.
class CFileIccProfileReader : public CIccProfileReader {
public:
    explicit CFileIccProfileReader(const std::filesystem::path& name);

    /// The file that the name stands for: the first that is there, else in the first folder.
    const std::filesystem::path& FileName() const { return m_FileName; }

    bool OpenProfile() override;
    /// By the name, so also before the file is open.
    std::uint32_t GetProfileSize() override;
    std::size_t ReadProfile(std::span<std::uint8_t> buffer) override;
    int CloseProfile() override;

private:
    std::filesystem::path m_FileName;
    PositionalFile m_File;
    std::uint64_t m_uPosition = 0;
};

} // namespace vireo
