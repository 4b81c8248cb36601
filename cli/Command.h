#pragma once

namespace vireo {

class CommandOptions;
struct Settings;

/// One command of the program.
struct Command {
    const char* name;
    const char* summary; ///< For the program's help.
    /// Adds the command's options and arguments, which fill the settings.
    void (*addOptions)(CommandOptions& command, Settings& settings);
    /// Does the command; the program's exit status. Null for a command that draws: see Drawing.h.
    int (*run)(const Settings& settings);
};

Command IdentifyCommand();
Command HeaderCommand();
Command AnalyseCommand();
Command CheckCommand();
Command RenderCommand();
Command ReportCommand();
Command ExportCommand();
Command UnpackCommand();
Command PackCommand();
Command ConvertCommand();
Command ErrorCommand();

} // namespace vireo
