// steprt stat: what exchange files hold.
#ifndef STEPRT_TOOLS_STAT_H
#define STEPRT_TOOLS_STAT_H

#include <CLI/CLI.hpp>

namespace steprt_tools {

// Adds the subcommand. When it is called, `status` becomes the exit status.
void AddStat(CLI::App& app, int& status);

}  // namespace steprt_tools

#endif
