#pragma once

#include "platform/Message.h"

namespace vireo {

/// Shows the program's messages as message boxes over the window the user works in, which wait for
/// an answer. An empty caption becomes the program's title.
class QtMessageSink : public MessageSink {
public:
    void ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon) override;
};

} // namespace vireo
