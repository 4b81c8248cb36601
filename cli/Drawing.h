#pragma once

#include <string>
#include <vector>

namespace vireo {

struct Command;
struct Settings;

/// Does a command that draws; the program's exit status. `arguments` are those of the program.
///
/// Drawing takes Qt, and a program that is linked to Qt takes several times as long to start. So
/// there are two: vireo-cli hands such a command over to vireo-cli-draw, which is the same program
/// with everything that draws, and lies beside it or in its own folder of the installation. Where
/// Qt is linked in statically (Windows) a third program would be large for nothing: the viewer is
/// also the program that draws.
int Draw(
    const Command& command, const Settings& settings, const std::vector<std::string>& arguments);

} // namespace vireo
