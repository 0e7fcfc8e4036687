#include "schema_files.h"

#include <cstdio>
#include <utility>

#include "exit_status.h"

namespace steprt_tools {

std::unique_ptr<express::Model> LoadSchemas(const std::vector<std::string>& paths, express::Diagnostics& diagnostics) {
  std::vector<std::unique_ptr<express::Source>> sources;
  for (const std::string& path : paths) {
    auto source = express::ReadSource(path, diagnostics);
    if (source) sources.push_back(std::move(source));
  }
  if (diagnostics.Errors() > 0) return nullptr;
  return express::Load(std::move(sources), diagnostics);
}

int PrintDiagnostics(const express::Diagnostics& diagnostics) {
  bool unreadable = false;
  for (const express::Diagnostic& diagnostic : diagnostics.All()) {
    std::fputs(Format(diagnostic).c_str(), stderr);
    unreadable = unreadable || diagnostic.code == express::Code::kUnreadableFile;
  }
  if (unreadable) return kUnusable;
  return diagnostics.Errors() > 0 ? kFindings : kClean;
}

}  // namespace steprt_tools
