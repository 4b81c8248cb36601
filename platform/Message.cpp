#include "platform/Message.h"

#include "platform/Text.h"

#include <cstdio>

namespace vireo {

namespace {

MessageSink* currentSink = nullptr;

void PrintMessage(std::string_view text, std::string_view caption)
{
    std::string line = std::string(text) + '\n';
    if (!caption.empty())
        line.insert(0, std::string(caption) + ": ");
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void Show(std::string_view text, std::string_view caption, MessageIcon icon)
{
    if (currentSink != nullptr)
        currentSink->ShowMessage(text, caption, icon);
    else
        PrintMessage(text, caption);
}

} // namespace

void ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon)
{
    Show(Utf8FromWindows1252(text), Utf8FromWindows1252(caption), icon);
}

void ShowMessageInUtf8(std::string_view text, MessageIcon icon)
{
    Show(text, {}, icon);
}

MessageSink* SetMessageSink(MessageSink* sink)
{
    MessageSink* const before = currentSink;
    currentSink = sink;
    return before;
}

MessageRecorder::MessageRecorder() : m_before(SetMessageSink(this)) { }

MessageRecorder::~MessageRecorder()
{
    SetMessageSink(m_before);
}

void MessageRecorder::ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon)
{
    m_messages.push_back({std::string(text), std::string(caption), icon});
}

} // namespace vireo
