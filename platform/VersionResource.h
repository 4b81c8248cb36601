#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// The version resource of an executable, as the system gives it.
class VersionResource {
public:
    /// Reads the resource of an executable; false when it has none.
    bool Load(const std::filesystem::path& module);
    /// The fixed file information block; empty when the resource has none.
    std::vector<std::uint8_t> FixedFileInfo() const;
    /// The Windows-1252 text at a query path; empty when the resource has none.
    std::string Text(const std::string& queryPath) const;

private:
    /// The resource as it stands in the executable; unused where records are compiled in.
    std::vector<std::uint8_t> m_block;
};

} // namespace vireo
