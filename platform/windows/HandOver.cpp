#include "platform/HandOver.h"

#include "platform/windows/SystemError.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <array>
#include <cstdlib>
#include <memory>

namespace vireo {

namespace {

/// Tells the other program that it was started by HandOver.
constexpr const wchar_t* kVariable = L"VIREO_HANDED_OVER";

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

/// An argument as CommandLineToArgvW reads it back: backslashes count only before a quotation mark.
std::wstring Quoted(const std::wstring& argument)
{
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : argument) {
        if (character == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        text += character;
    }
    return text.append(backslashes, L'\\') + L'"';
}

std::wstring CommandLine(
    const std::filesystem::path& program, const std::vector<std::string>& arguments)
{
    std::wstring line = Quoted(program.wstring());
    for (const std::string& argument : arguments)
        line += L' ' + Quoted(WideFromUtf8(argument));
    return line;
}

struct Pipe {
    Handle readEnd;
    Handle writeEnd; ///< For the other program.
};

Pipe MakePipe()
{
    SECURITY_ATTRIBUTES inherited = {};
    inherited.nLength = sizeof(inherited);
    inherited.bInheritHandle = TRUE;
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (!CreatePipe(&readEnd, &writeEnd, &inherited, 0))
        return {};
    SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
    return {Handle(readEnd), Handle(writeEnd)};
}

/// Passes on what has come so far, without waiting for more.
void PassOn(const Handle& from, DWORD standardHandle)
{
    std::array<char, 65536> buffer;
    const HANDLE to = GetStdHandle(standardHandle);
    DWORD available = 0;
    while (PeekNamedPipe(from.get(), nullptr, 0, nullptr, &available, nullptr) && available > 0) {
        DWORD size = 0;
        if (!ReadFile(from.get(), buffer.data(), buffer.size(), &size, nullptr))
            return;
        DWORD written = 0;
        for (DWORD at = 0; at < size; at += written) {
            if (!WriteFile(to, buffer.data() + at, size - at, &written, nullptr))
                break; // Nobody listens; the other program goes on all the same.
        }
    }
}

/// Ends the other program with this one, however this one ends.
Handle MakeJob()
{
    Handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
    return job;
}

} // namespace

FileStatus HandOver(const std::filesystem::path& program, const std::vector<std::string>& arguments)
{
    const Pipe output = MakePipe();
    const Pipe errors = MakePipe();
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = output.writeEnd.get();
    startup.hStdError = errors.writeEnd.get();
    SetEnvironmentVariableW(kVariable, L"1");
    std::wstring line = CommandLine(program, arguments);
    PROCESS_INFORMATION started = {};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED,
            nullptr, nullptr, &startup, &started))
        return StatusFromError(GetLastError());
    const Handle process(started.hProcess);
    const Handle thread(started.hThread);
    const Handle job = MakeJob();
    AssignProcessToJobObject(job.get(), process.get());
    ResumeThread(thread.get());

    // The end of the process is the end, not that of the pipes: what it has started in its turn may
    // hold them open.
    constexpr DWORD kPauseMs = 5;
    bool hasEnded = false;
    while (!hasEnded) {
        hasEnded = WaitForSingleObject(process.get(), kPauseMs) != WAIT_TIMEOUT;
        PassOn(output.readEnd, STD_OUTPUT_HANDLE);
        PassOn(errors.readEnd, STD_ERROR_HANDLE);
    }
    DWORD exitStatus = EXIT_FAILURE;
    GetExitCodeProcess(process.get(), &exitStatus);
    std::exit(static_cast<int>(exitStatus));
}

bool IsHandedOver()
{
    return GetEnvironmentVariableW(kVariable, nullptr, 0) > 0;
}

} // namespace vireo
