// The command: subcommands for schemas and for exchange files.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "check.h"
#include "compile.h"
#include "convert.h"
#include "exit_status.h"
#include "stat.h"

int main(int argc, char** argv) try {
  using namespace steprt_tools;
  CLI::App app("Works with schemas and exchange files of ISO 10303 (STEP)", "steprt");
  app.set_version_flag("--version", "steprt " STEPRT_TOOLS_VERSION);
  app.require_subcommand(1);
  constexpr std::size_t kColumn = 28;  // where the descriptions of options begin
  app.get_formatter()->column_width(kColumn);
  int status = kClean;
  AddCompile(app, status);
  AddConvert(app, status);
  AddStat(app, status);
  AddCheck(app, status);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    status = app.exit(error) == 0 ? kClean : kUnusable;
  }
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
  std::fputs("steprt: error: cannot write standard output\n", stderr);
  return kUnusable;
} catch (const std::exception& error) {
  std::fprintf(stderr, "steprt: error: %s\n", error.what());
  return steprt_tools::kUnusable;
}
