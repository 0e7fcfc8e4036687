// steprt compile: C++ from EXPRESS.
#ifndef STEPRT_TOOLS_COMPILE_H
#define STEPRT_TOOLS_COMPILE_H

#include <CLI/CLI.hpp>

namespace steprt_tools {

// Adds the subcommand. When it is called, `status` becomes the exit status.
void AddCompile(CLI::App& app, int& status);

}  // namespace steprt_tools

#endif
