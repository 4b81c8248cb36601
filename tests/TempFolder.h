#pragma once

#include "platform/Path.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace vireo {

/// An empty folder for one test, removed with all that it holds when the test ends.
class TempFolder {
public:
    TempFolder()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name =
            test ? std::string(test->test_suite_name()) + "-" + test->name() : "test";
        for (char& c : name)
            c = c == '/' ? '-' : c;
        const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
        m_path = std::filesystem::temp_directory_path()
            / ("vireo-" + name + "-" + std::to_string(stamp));
        std::filesystem::create_directories(m_path);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }

    /// Writes a file of these bytes and returns its path.
    /// `name` is UTF-8.
    std::filesystem::path Write(const std::string& name, std::string_view bytes) const
    {
        const std::filesystem::path file = m_path / PathFromUtf8(name);
        std::ofstream(file, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file;
    }

    static std::string Read(const std::filesystem::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::filesystem::path m_path;
};

} // namespace vireo
