#pragma once

#include "platform/Text.h"

#include <cstddef>
#include <string>

namespace vireo {

/// A value that an option offers, and the text that chooses it.
template <typename Value>
struct Choice {
    const char* text;
    Value value;
};

/// Whether "a" is as good as "A" where a choice is written so.
enum class LetterCase { Ignored, Heeded };

/// Sets `chosen` to the value of a text; the reason to refuse the text when it has none, else an
/// empty one.
template <typename Value, std::size_t Count, typename Chosen>
std::string Choose(const Choice<Value> (&choices)[Count], const std::string& text, Chosen& chosen,
    LetterCase letters = LetterCase::Ignored)
{
    std::string known;
    for (const Choice<Value>& choice : choices) {
        if (letters == LetterCase::Ignored ? EqualsIgnoringCase(choice.text, text)
                                           : choice.text == text) {
            chosen = choice.value;
            return {};
        }
        known.append(known.empty() ? "" : ", ").append(choice.text);
    }
    return "must be one of " + known + ", not " + text;
}

} // namespace vireo
