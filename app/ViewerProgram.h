#pragma once

namespace vireo {

/// The main function of the viewer; the program's exit status.
int RunViewerProgram(int argc, char** argv);

} // namespace vireo
