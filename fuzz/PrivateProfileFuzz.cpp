#include "platform/ProfileText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// What is set is found, what is removed is gone, and other sections never notice.
void CheckChanges(const std::string& text)
{
    vireo::ProfileText profile(text);
    const auto other = profile.Find("Other", "Key");
    const std::string otherBefore(other.value_or("missing"));
    Require(profile.Set("Section", "Key", "new value"));
    Require(profile.Find("section", "KEY") == "new value");
    Require(profile.Find("Other", "Key").value_or("missing") == otherBefore);

    const std::string changed = profile.Text();
    Require(profile.Set("Section", "Key", "new value") && profile.Text() == changed);
    Require(profile.Remove("Section", "Key"));
    Require(profile.Text().size() < changed.size());
    while (profile.Remove("Section", std::nullopt)) { }
    Require(!profile.Find("Section", "Key"));
    Require(profile.Find("Other", "Key").value_or("missing") == otherBefore);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // The first line is a value to write; the rest is the file.
    const std::string input(data, data + size);
    const std::size_t end = input.find('\n');
    const std::string text = end == std::string::npos ? input : input.substr(end + 1);
    CheckChanges(text);

    vireo::ProfileText profile(text);
    Require(profile.Set("Section", "Key", input.substr(0, end)));
    Require(profile.Find("Section", "Key").has_value());
    return 0;
}
