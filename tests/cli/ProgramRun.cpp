#include "tests/cli/ProgramRun.h"

#include "platform/Path.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

#include <gtest/gtest.h>

namespace vireo {

namespace {

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

} // namespace

std::vector<nlohmann::ordered_json> ProgramRun::Objects() const
{
    std::vector<nlohmann::ordered_json> objects;
    for (const std::string& line : LinesOf(output))
        objects.push_back(nlohmann::ordered_json::parse(line));
    return objects;
}

std::vector<std::string> ProgramRun::Errors() const
{
    return LinesOf(error);
}

ProgramRun RunTool(const std::string& program, const std::vector<std::string>& arguments)
{
    QStringList texts;
    for (const std::string& argument : arguments)
        texts.append(QString::fromStdString(argument));
    QProcess process;
    process.start(QString::fromStdString(program), texts);
    constexpr int kLongestRunMs = 120'000;
    const bool ended = process.waitForFinished(kLongestRunMs);
    ProgramRun run;
    if (ended && process.exitStatus() == QProcess::NormalExit)
        run.exitStatus = process.exitCode();
    run.output = process.readAllStandardOutput().toStdString();
    run.error = process.readAllStandardError().toStdString();
    return run;
}

ProgramRun RunCli(const std::vector<std::string>& arguments)
{
    return RunTool(VIREO_CLI, arguments);
}

nlohmann::ordered_json ObjectOf(const std::vector<std::string>& arguments)
{
    const ProgramRun run = RunCli(arguments);
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    const auto objects = run.Objects();
    EXPECT_EQ(objects.size(), 1U) << run.error;
    return objects.size() == 1 ? objects[0] : nlohmann::ordered_json();
}

std::string RefusalOf(const std::vector<std::string>& arguments)
{
    const ProgramRun run = RunCli(arguments);
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    return run.error;
}

ProgramRun RunBench(const std::vector<std::string>& arguments)
{
    return RunTool(VIREO_BENCH, arguments);
}

bool HasTool(const std::string& program)
{
    return !QStandardPaths::findExecutable(QString::fromStdString(program)).isEmpty();
}

std::vector<std::string> KeysOf(const nlohmann::ordered_json& object)
{
    std::vector<std::string> keys;
    for (const auto& member : object.items())
        keys.push_back(member.key());
    return keys;
}

std::string Text(const std::filesystem::path& path)
{
    return Utf8FromPath(path);
}

} // namespace vireo
