#include "platform/Log.h"

#include "platform/AppendFile.h"
#include "platform/KnownFolders.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <mutex>
#include <system_error>
#include <vector>

namespace vireo {

namespace {

constexpr std::size_t kMostPendingLines = 1000;

enum class LogState { BeforeInit, Open, Failed };

/// The process's one log.
struct LogTarget {
    std::mutex mutex;
    LogState state = LogState::BeforeInit;
    AppendFile file;
    std::filesystem::path path;
    std::vector<std::string> pending;
    std::size_t droppedLines = 0;
    std::uint64_t room = 0; ///< How many bytes are written before the log is opened anew.
};

LogTarget& Target()
{
    static LogTarget target;
    return target;
}

/// Opens the log at the target's path, a new one where the one that is there has no room for so
/// many bytes. Another program may have made the new one already: what counts is the file's size.
bool OpenWithRoom(LogTarget& target, std::uint64_t bytes)
{
    target.file.Close();
    std::error_code error;
    std::uint64_t size = std::filesystem::file_size(target.path, error);
    if (!error && size + bytes > kLargestLog) {
        std::filesystem::path old = target.path;
        old.replace_extension(".old").concat(target.path.extension().native());
        std::filesystem::rename(target.path, old, error);
        size = 0; // A folder that forbids it is asked again much later.
    }
    target.room = kLargestLog - (error ? 0 : std::min(size, kLargestLog));
    return target.file.Open(target.path);
}

void Append(LogTarget& target, std::string_view line)
{
    if (line.size() > target.room)
        OpenWithRoom(target, line.size());
    target.room -= std::min<std::uint64_t>(line.size(), target.room);
    target.file.Append(line);
}

bool OpenIn(LogTarget& target, const std::filesystem::path& folder, const std::string& name)
{
    if (folder.empty())
        return false;
    target.path = folder / PathFromUtf8(name);
    return OpenWithRoom(target, 1);
}

bool OpenInStateFolder(LogTarget& target, const std::string& name)
{
    const std::filesystem::path folder = StateFolder();
    std::error_code ignored; // What matters is whether the file can be opened.
    std::filesystem::create_directories(folder, ignored);
    return OpenIn(target, folder, name);
}

std::string TimestampedLine(std::string_view message)
{
    std::string line = CDateTime::Now().Text();
    line += ' ';
    for (const char c : message)
        line += c == '\n' || c == '\r' || c == '\0' ? ' ' : c;
    line += '\n';
    return line;
}

void WritePendingLines(LogTarget& target)
{
    for (const std::string& line : target.pending)
        Append(target, line);
    if (target.droppedLines > 0) {
        Append(target,
            TimestampedLine(Format("%zu more early messages were not kept", target.droppedLines)));
    }
}

} // namespace

bool log_Init(
    std::string_view programName, std::string_view extension, const std::filesystem::path& folder)
{
    const std::string name = Utf8FromWindows1252(std::string(programName) + std::string(extension));
    LogTarget& target = Target();
    const std::lock_guard lock(target.mutex);
    const bool opened = OpenIn(target, folder, name) || OpenInStateFolder(target, name);
    target.state = opened ? LogState::Open : LogState::Failed;
    if (opened)
        WritePendingLines(target);
    else
        target.path.clear();
    target.pending = {};
    target.droppedLines = 0;
    return opened;
}

void log_Close()
{
    LogTarget& target = Target();
    const std::lock_guard lock(target.mutex);
    target.file.Close();
    target.path.clear();
    target.state = LogState::BeforeInit;
}

std::filesystem::path log_FilePath()
{
    LogTarget& target = Target();
    const std::lock_guard lock(target.mutex);
    return target.path;
}

void Log_Msg(std::string_view message)
{
    LogTarget& target = Target();
    const std::lock_guard lock(target.mutex);
    if (target.state == LogState::Open)
        Append(target, TimestampedLine(message));
    else if (target.state == LogState::BeforeInit && target.pending.size() < kMostPendingLines)
        target.pending.push_back(TimestampedLine(message));
    else if (target.state == LogState::BeforeInit)
        ++target.droppedLines;
}

namespace {

void LogWithValue(std::string_view message, std::string_view value)
{
    std::string text(message);
    if (!text.empty() && text.back() != ' ')
        text += ' ';
    text += value;
    Log_Msg(text);
}

} // namespace

void Log_Msg_Int(std::string_view message, long long value)
{
    LogWithValue(message, Format("%lld", value));
}

void Log_Msg_Txt(std::string_view message, std::string_view value)
{
    LogWithValue(message, value);
}

void Log_Msg_Double(std::string_view message, double value)
{
    LogWithValue(message, Format("%g", value));
}

void Log_Msg_Hex(std::string_view message, std::uint32_t value)
{
    LogWithValue(message, Format("0x%08X", static_cast<unsigned>(value)));
}

void Log_Msg_Char(std::string_view message, char value)
{
    LogWithValue(message, std::string_view(&value, 1));
}

std::string CDateTime::Text() const
{
    return Format("%04d-%02d-%02d %02d:%02d:%02d.%03d", m_iYear, m_iMonth, m_iDay, m_iHour,
        m_iMinute, m_iSecond, m_iMillisecond);
}

} // namespace vireo
