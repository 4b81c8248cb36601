// A small error-text library, as tests load it at run time.

#include "errors/ErrorTextLibrary.h"

#include <cstdio>

namespace {

class ErrorText final : public vireo::IErrorText {
public:
#ifdef _WIN32
    void* Destroy(unsigned) override
    {
        return this;
    }
#endif
    void GetText(std::uint32_t code, char* text) override
    {
        std::snprintf(text, kTextBytes, "Translated %u", static_cast<unsigned>(code));
    }
};

} // namespace

#ifdef _WIN32
#define VIREO_EXPORT extern "C" __declspec(dllexport)
#else
#define VIREO_EXPORT extern "C" __attribute__((visibility("default")))
#endif

#ifndef VIREO_WITHOUT_ENTRIES
VIREO_EXPORT vireo::IErrorText* ReturnErrorInstance()
{
    static ErrorText text;
    return &text;
}

VIREO_EXPORT void GetTranslatedText(std::uint32_t code, char* text)
{
    std::snprintf(text, vireo::IErrorText::kTextBytes, "Plain %u", static_cast<unsigned>(code));
}
#endif
