#pragma once

#include "platform/SharedLibrary.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace vireo {

/// What the error-text library hands out: the object that knows the translated texts. Other
/// compilers make it, so only the order of its virtual functions counts.
class IErrorText {
public:
#ifdef _WIN32
    /// Microsoft's compiler, which makes the library, gives a destructor one entry; GCC gives it
    /// two, so the entry is declared by hand and never called: the library owns the object.
    virtual void* Destroy(unsigned flags) = 0;
#else
    virtual ~IErrorText() = default;
#endif
    /// Writes the text of a code into `text`, which has kTextBytes bytes, ended by a zero byte.
    virtual void GetText(std::uint32_t code, char* text) = 0;

    static constexpr std::size_t kTextBytes = 4096;

#ifdef _WIN32
protected:
    ~IErrorText() = default;
#endif
};

/// The library with the translated texts of errors, "ErrorOut.DLL" in the program's folder, loaded
/// for each question and released again.
class ErrorTextLibrary {
public:
    static constexpr const char* kName = "ErrorOut.DLL";

    explicit ErrorTextLibrary(std::filesystem::path library = kName);

    /// The text of a code as the library's "ReturnErrorInstance" object gives it. A missing library
    /// or entry is told in one message; the result is then nothing.
    std::optional<std::string> ErrorText(std::uint32_t code) const;
    /// The same through the library's plain entry "GetTranslatedText".
    std::optional<std::string> TranslatedText(std::uint32_t code) const;

private:
    std::filesystem::path m_library;
};

} // namespace vireo
