// The subcommand `steprt convert`.
#ifndef STEPRT_TOOLS_CONVERT_H
#define STEPRT_TOOLS_CONVERT_H

#include <CLI/CLI.hpp>

namespace steprt_tools {

// Adds the subcommand. When it runs, `status` becomes its exit status.
void AddConvert(CLI::App& app, int& status);

}  // namespace steprt_tools

#endif
