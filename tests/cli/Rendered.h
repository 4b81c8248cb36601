#pragma once

#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"

#include <QImage>

#include <string>
#include <vector>

namespace vireo {

/// The PNG that vireo-cli draws of a file with further options; null when it refuses.
inline QImage Rendered(const std::string& file, const std::vector<std::string>& options = {})
{
    const TempFolder folder;
    const std::string picture = Text(folder.Path() / "out.png");
    std::vector<std::string> arguments{"render", file, "-o", picture};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ProgramRun run = RunCli(arguments);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.exitStatus == 0, run.error.empty()) << run.error;
    return QImage(QString::fromStdString(picture));
}

} // namespace vireo
