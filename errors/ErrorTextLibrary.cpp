#include "errors/ErrorTextLibrary.h"

#include "platform/Message.h"

#include <utility>

namespace vireo {

namespace {

/// A buffer for the library to write into, with a zero byte behind it should the library forget.
class TextBuffer {
public:
    TextBuffer() : m_text(IErrorText::kTextBytes + 1, '\0') { }
    char* Data() { return m_text.data(); }
    std::string Text() const { return m_text.c_str(); }

private:
    std::string m_text;
};

template <typename Function>
Function EntryOf(const SharedLibrary& library, const char* name)
{
    return reinterpret_cast<Function>(library.Symbol(name));
}

} // namespace

ErrorTextLibrary::ErrorTextLibrary(std::filesystem::path library)
    : m_library(std::move(library)) { }

std::optional<std::string> ErrorTextLibrary::ErrorText(std::uint32_t code) const
{
    SharedLibrary library;
    if (!library.Load(m_library)) {
        ShowMessage("Could not find ErrorOut.dll");
        return std::nullopt;
    }
    const auto returnInstance = EntryOf<IErrorText* (*)()>(library, "ReturnErrorInstance");
    if (!returnInstance) {
        ShowMessage("Could not find 'FunctionReturnErrorInstance'");
        return std::nullopt;
    }
    TextBuffer text;
    if (IErrorText* const instance = returnInstance())
        instance->GetText(code, text.Data());
    return text.Text();
}

std::optional<std::string> ErrorTextLibrary::TranslatedText(std::uint32_t code) const
{
    SharedLibrary library;
    if (!library.Load(m_library)) {
        ShowMessage("Error in load of ErrorOut.dll");
        return std::nullopt;
    }
    const auto translate = EntryOf<void (*)(std::uint32_t, char*)>(library, "GetTranslatedText");
    if (!translate) {
        ShowMessage("Could not find 'GetTranslatedText'");
        return std::nullopt;
    }
    TextBuffer text;
    translate(code, text.Data());
    return text.Text();
}

} // namespace vireo
