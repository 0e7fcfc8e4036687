// schema_report FILE.exp FOLDER - prints what a schema holds and how long it takes to parse and to generate, and leaves
// in FOLDER the C++ (namespace `schema`) and sample.stp for round_trip.cpp.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>

#include "express/cpp/generate.h"
#include "express/cpp/program.h"
#include "express/load.h"
#include "sample.h"

namespace {

using namespace express;

double Seconds() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

// "reference", "list of real", "list of list of select".
std::string KindOf(std::string type) {
  std::string kind;
  while (type.starts_with("steprt::List<")) {
    kind += "list of ";
    type = type.substr(13);
  }
  static const std::map<std::string, std::string> simple = {
      {"Text", "text"},       {"Real", "real"},     {"Integer", "integer"}, {"Boolean", "boolean"},
      {"Logical", "logical"}, {"Binary", "binary"}, {"Value", "value"}};
  if (!type.starts_with("steprt::")) return kind + "select";
  type = type.substr(8);
  if (type.starts_with("Ref<")) return kind + "reference";
  if (type.starts_with("Enumeration<")) return kind + "enumeration";
  return kind + simple.at(type.substr(0, type.find('>')));
}

void PrintCounts(const cpp::Program& program) {
  std::map<std::string, int> kinds;
  int attributes = 0;
  int abstract = 0;
  for (const auto& made : program.classes) {
    abstract += made->entity->abstract ? 1 : 0;
    for (const auto& member : made->members) {
      if (member->attribute->owner != made->entity) continue;
      ++attributes;
      ++kinds[KindOf(member->type)];
    }
  }
  std::printf("  %zu entities (%d abstract), %zu enumerations, %zu selects, %d attributes:\n", program.classes.size(),
              abstract, program.enumerations.size(), program.selects.size(), attributes);
  for (const auto& [kind, count] : kinds) std::printf("    %5d %s\n", count, kind.c_str());
}

bool Write(const std::filesystem::path& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
  out.close();
  if (!out) std::fprintf(stderr, "schema_report: cannot write %s\n", path.c_str());
  return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  Diagnostics diagnostics;
  const double start = Seconds();
  std::vector<std::unique_ptr<Source>> sources;
  if (auto source = ReadSource(argv[1], diagnostics)) sources.push_back(std::move(source));
  const auto model = Load(std::move(sources), diagnostics);
  const double parsed = Seconds();
  cpp::Options options;
  options.nameSpace = "schema";
  std::vector<cpp::File> files;
  if (diagnostics.Errors() == 0) files = Generate(*model, options, diagnostics);
  const double generated = Seconds();
  for (const Diagnostic& diagnostic : diagnostics.All()) std::fputs(Format(diagnostic).c_str(), stderr);
  if (diagnostics.Errors() > 0) return 1;

  const cpp::Selection selection = cpp::SelectDeclarations(*model, {}, diagnostics);
  std::printf("%s\n", std::string(selection.schema->name.text).c_str());
  PrintCounts(BuildProgram(selection, "schema", 1, diagnostics));
  std::printf("  parsed in %.3f s, generated in %.3f s\n", parsed - start, generated - parsed);
  const std::filesystem::path folder = argv[2];
  std::filesystem::create_directories(folder);
  files.push_back(
      {"sample.stp", steprt_tools::SampleFile(std::string(selection.schema->name.text), selection.entities)});
  for (const cpp::File& file : files) {
    if (!Write(folder / file.name, file.text)) return 2;
  }
  return 0;
}
