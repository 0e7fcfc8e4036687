#include "express/cpp/generate.h"

#include "express/cpp/layout.h"
#include "express/cpp/names.h"
#include "express/cpp/print.h"
#include "express/cpp/program.h"
#include "express/cpp/selection.h"

namespace express::cpp {

std::vector<File> Generate(const Model& model, const Options& options, Diagnostics& diagnostics) {
  const Selection selection = SelectDeclarations(model, options.entities, diagnostics);
  if (diagnostics.Errors() > 0) return {};
  std::string nameSpace = options.nameSpace;
  if (nameSpace.empty()) {
    nameSpace = LowerCase(selection.schema->name.text);
    if (!IsNamespace(nameSpace)) nameSpace += '_';
  }
  const Program program = BuildProgram(selection, nameSpace, options.firstType, diagnostics);
  if (diagnostics.Errors() > 0) return {};
  const std::string stem = FileStem(nameSpace);
  std::vector<File> files = {{stem + ".h", PrintHeader(program)}, {stem + ".cpp", PrintTables(program)}};
  for (int part = 0; part < options.parts; ++part) {
    files.push_back({stem + "_" + std::to_string(part + 1) + ".cpp", PrintPart(program, part, options.parts)});
  }
  if (options.module) files.push_back({stem + "_module.cpp", PrintModule(program)});
  return files;
}

}  // namespace express::cpp
