// Runs a fuzz target on its corpus without a fuzzer: every file, and of small files every
// truncation and every byte changed in a few ways, unless --files-only is given.

#include "fuzz/FuzzInput.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string_view>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kSmallBytes = 1024;

Bytes ReadFile(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Runs an exact copy, so that a sanitizer sees a read past its end.
void RunCopy(Bytes bytes)
{
    bytes.shrink_to_fit();
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

void RunTruncations(const Bytes& input)
{
    for (auto end = input.begin(); end != input.end(); ++end)
        RunCopy(Bytes(input.begin(), end));
}

void RunChangedBytes(const Bytes& input)
{
    for (std::size_t i = 0; i < input.size(); ++i) {
        for (const int value : {0, int{'='}, int{'\n'}, int{'9'}, 0xFF, input[i] ^ 0x80}) {
            Bytes changed = input;
            changed[i] = static_cast<std::uint8_t>(value);
            RunCopy(std::move(changed));
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    const bool filesOnly = argc == 3 && std::string_view(argv[2]) == "--files-only";
    if (argc != 2 && !filesOnly) {
        std::fprintf(stderr, "usage: %s CORPUS-FOLDER [--files-only]\n", argv[0]);
        return 2;
    }
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1], error))
        files.push_back(entry.path());
    if (files.empty()) {
        std::fprintf(stderr, "no inputs in %s\n", argv[1]);
        return 1;
    }
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& file : files) {
        // The name first and at once: it is what is wanted when the input ends the program.
        std::printf("%s\n", file.filename().string().c_str());
        std::fflush(stdout);
        const Bytes input = ReadFile(file);
        RunCopy(input);
        if (!filesOnly && input.size() <= kSmallBytes) {
            RunTruncations(input);
            RunChangedBytes(input);
        }
    }
    return 0;
}
