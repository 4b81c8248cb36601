#include "fuzz/FuzzInput.h"
#include "platform/ProfileText.h"

#include <string>

namespace vireo {
namespace {

/// What is set is found, what is removed is gone, and other sections never notice.
void CheckChanges(const std::string& text)
{
    ProfileText profile(text);
    const std::string other(profile.Find("Other", "Key").value_or("missing"));
    Require(profile.Set("Section", "Key", "new value"));
    Require(profile.Find("section", "KEY") == "new value");
    Require(profile.Find("Other", "Key").value_or("missing") == other);

    const std::string changed = profile.Text();
    Require(profile.Set("Section", "Key", "new value") && profile.Text() == changed);
    Require(profile.Remove("Section", "Key"));
    Require(profile.Text().size() < changed.size());
    while (profile.Remove("Section", std::nullopt)) { }
    Require(!profile.Find("Section", "Key"));
    Require(profile.Find("Other", "Key").value_or("missing") == other);
}

} // namespace
} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vireo;
    // The first line is a value to write, the rest is the file.
    const std::string_view input = AsText({data, size});
    const std::size_t end = input.find('\n');
    const std::string text(end == std::string_view::npos ? input : input.substr(end + 1));
    CheckChanges(text);

    ProfileText profile(text);
    Require(profile.Set("Section", "Key", input.substr(0, end)));
    Require(profile.Find("Section", "Key").has_value());
    return 0;
}
