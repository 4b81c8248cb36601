#include "platform/Message.h"

#include "platform/Text.h"

#include <cstdio>

namespace vireo {

namespace {

MessageSink* currentSink = nullptr;

void PrintMessage(std::string_view text, std::string_view caption)
{
    std::string line = Utf8FromWindows1252(text) + '\n';
    if (!caption.empty())
        line.insert(0, Utf8FromWindows1252(caption) + ": ");
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace

void ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon)
{
    if (currentSink != nullptr)
        currentSink->ShowMessage(text, caption, icon);
    else
        PrintMessage(text, caption);
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
