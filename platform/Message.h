#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vireo {

enum class MessageIcon { None, Information, Exclamation, Stop };

/// Where messages to the user go: message boxes in the viewer, standard error in the command-line
/// program, a recorder in tests. A sink that shows captions puts the program's title where the
/// caption is empty.
class MessageSink {
public:
    virtual ~MessageSink() = default;
    /// Text and caption are UTF-8.
    virtual void ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon) = 0;
};

/// Shows a message through the program's sink and returns when the user has seen it. Text and
/// caption are 8-bit Windows-1252; an empty caption stands for the program's title. Without a sink
/// the message goes to standard error. Called on the user-interface thread only.
void ShowMessage(std::string_view text, std::string_view caption = {},
    MessageIcon icon = MessageIcon::Exclamation);
/// The same with text in UTF-8, for messages that name a file: names hold characters that no code
/// page has.
void ShowMessageInUtf8(std::string_view text, MessageIcon icon = MessageIcon::Exclamation);

/// Sets the program's sink, which must outlive its use; returns the one before (null at first).
MessageSink* SetMessageSink(MessageSink* sink);

/// Keeps messages instead of showing them, while it lives; the sink before it comes back after.
class MessageRecorder : public MessageSink {
public:
    MessageRecorder();
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;
    ~MessageRecorder() override;

    void ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon) override;

    /// As the sink gets it, in UTF-8.
    struct Message {
        std::string text;
        std::string caption;
        MessageIcon icon;
    };
    const std::vector<Message>& Messages() const { return m_messages; }
    void Clear() { m_messages.clear(); }

private:
    std::vector<Message> m_messages;
    MessageSink* m_before;
};

} // namespace vireo
