#pragma once

#include <memory>

namespace CLI {
class FormatterBase;
}

namespace vireo {

/// Help as terminals of 80 columns show it: usage, what the program or command does, its arguments
/// and options with wrapped descriptions, its commands.
std::shared_ptr<CLI::FormatterBase> MakeHelpText();

} // namespace vireo
