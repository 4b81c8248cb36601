#include "errors/ErrorReport.h"

#include "platform/AppendFile.h"
#include "platform/KnownFolders.h"
#include "platform/Text.h"

#include <system_error>

namespace vireo {

namespace {

constexpr std::uint32_t kUnknownError = 119;

std::string TextOf(const ErrorReportSetup& setup, std::uint32_t code, std::string_view text)
{
    if (auto translated = setup.library.ErrorText(code); translated && !translated->empty())
        return *std::move(translated);
    if (const auto own = LookUpError(code, setup.feed))
        return std::string(*own);
    return std::string(text.empty() ? *LookUpError(kUnknownError, setup.feed) : text);
}

void LogError(std::uint32_t code, std::string_view detail, const std::string& text)
{
    const ErrorRow* const row = FindError(code);
    std::string line = Format("ERROR %u", static_cast<unsigned>(code));
    if (row)
        line.append(" (").append(ErrorClassName(row->severity)).append(")");
    line.append(": ").append(text);
    if (!detail.empty())
        line.append(" [").append(detail).append("]");
    Log_Msg(line);
}

std::filesystem::path LastErrorFile(const ErrorReportSetup& setup)
{
    if (!setup.lastErrorFile.empty())
        return setup.lastErrorFile;
    const std::filesystem::path log = log_FilePath();
    return (log.empty() ? StateFolder() : log.parent_path()) / "LastError.txt";
}

void AppendBlock(const std::filesystem::path& path, const std::string& block)
{
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    AppendFile file;
    if (!file.Open(path) || !file.Append(block))
        Log_Msg("The error cannot be kept in LastError.txt");
}

} // namespace

std::string ErrorBlock(const CDateTime& when, std::uint32_t code, std::string_view text)
{
    const std::string date = Format("%d/%d-%04d", when.m_iDay, when.m_iMonth, when.m_iYear);
    const std::string time = Format("%02d:%02d:%02d", when.m_iHour, when.m_iMinute, when.m_iSecond);
    return Format("Date:         %s\nTime:         %s\nError:        0x%4x\nText:         '%s'\n\n",
        date.c_str(), time.c_str(), static_cast<unsigned>(code), std::string(text).c_str());
}

std::string ReportError(const ErrorReportSetup& setup, std::uint32_t code, std::string_view detail,
    std::string_view text)
{
    if (code == ErrorReportSetup::kScannerLibraryError && setup.scannerLastError)
        code = setup.scannerLastError();
    if (code == 0)
        return {};
    std::string reported = TextOf(setup, code, text);
    LogError(code, detail, reported);
    AppendBlock(LastErrorFile(setup), ErrorBlock(CDateTime::Now(), code, reported));
    return reported;
}

} // namespace vireo
