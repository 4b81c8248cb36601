#pragma once

#include "platform/Text.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <string>

namespace vireo {

/// A value that an option offers, and the text that chooses it.
template <typename Value>
struct Choice {
    const char* text;
    Value value;
};

/// The value of a text, in letters of either case; bad usage of `option` when there is none.
template <typename Value, std::size_t Count>
Value Choose(const Choice<Value> (&choices)[Count], const char* option, const std::string& text)
{
    std::string known;
    for (const Choice<Value>& choice : choices) {
        if (EqualsIgnoringCase(choice.text, text))
            return choice.value;
        known.append(known.empty() ? "" : ", ").append(choice.text);
    }
    throw CLI::ValidationError(option, "must be one of " + known + ", not " + text);
}

} // namespace vireo
