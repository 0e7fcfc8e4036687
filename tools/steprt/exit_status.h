// The exit status of every subcommand.
#ifndef STEPRT_TOOLS_EXIT_STATUS_H
#define STEPRT_TOOLS_EXIT_STATUS_H

namespace steprt_tools {

enum ExitStatus {
  kClean = 0,
  kFindings = 1,  // the input has errors
  kUnusable = 2,  // wrong usage, or a file that cannot be read or written
};

}  // namespace steprt_tools

#endif
