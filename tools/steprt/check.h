// steprt check: what is wrong with exchange files.
#ifndef STEPRT_TOOLS_CHECK_H
#define STEPRT_TOOLS_CHECK_H

#include <CLI/CLI.hpp>

namespace steprt_tools {

// Adds the subcommand. When it is called, `status` becomes the exit status.
void AddCheck(CLI::App& app, int& status);

}  // namespace steprt_tools

#endif
