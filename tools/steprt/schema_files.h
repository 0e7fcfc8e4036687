// Schemas from files, for every subcommand.
#ifndef STEPRT_TOOLS_SCHEMA_FILES_H
#define STEPRT_TOOLS_SCHEMA_FILES_H

#include <memory>
#include <string>
#include <vector>

#include "express/load.h"

namespace steprt_tools {

// Reads and resolves the files together. What is wrong is in `diagnostics`; returns null if a file cannot be read.
std::unique_ptr<express::Model> LoadSchemas(const std::vector<std::string>& paths, express::Diagnostics& diagnostics);

// Prints all diagnostics to standard error and returns the exit status for them.
int PrintDiagnostics(const express::Diagnostics& diagnostics);

}  // namespace steprt_tools

#endif
