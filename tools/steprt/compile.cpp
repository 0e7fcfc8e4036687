#include "compile.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "exit_status.h"
#include "express/cpp/generate.h"
#include "express/cpp/names.h"
#include "schema_files.h"

namespace steprt_tools {
namespace {

constexpr int kMostParts = 1000;
constexpr int kMostType = 1'000'000'000;

struct Request {
  std::vector<std::string> schemas;
  std::string folder;
  express::cpp::Options options;
};

int WriteFiles(const std::vector<express::cpp::File>& files, const std::filesystem::path& folder) {
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  for (const express::cpp::File& file : files) {
    const std::filesystem::path path = folder / file.name;
    std::ofstream out(path, std::ios::binary);
    out << file.text;
    out.close();
    if (out) continue;
    std::fprintf(stderr, "steprt: error: cannot write %s\n", path.c_str());
    return kUnusable;
  }
  return kClean;
}

int Compile(const Request& request) {
  express::Diagnostics diagnostics;
  const auto model = LoadSchemas(request.schemas, diagnostics);
  std::vector<express::cpp::File> files;
  if (diagnostics.Errors() == 0) files = Generate(*model, request.options, diagnostics);
  const int status = PrintDiagnostics(diagnostics);
  return status == kClean ? WriteFiles(files, request.folder) : status;
}

// What is wrong with the value of an option; empty: nothing.
std::string CheckFolder(const std::string& text) { return text.empty() ? "an empty name is no folder" : ""; }
std::string CheckNamespace(const std::string& text) {
  return express::cpp::IsNamespace(text) ? "" : "'" + text + "' cannot be a namespace";
}

}  // namespace

void AddCompile(CLI::App& app, int& status) {
  auto request = std::make_shared<Request>();
  CLI::App* const command = app.add_subcommand("compile", "Make C++ classes from schemas in EXPRESS (ISO 10303-11)");
  command->footer(
      "FOLDER receives NS.h, NS.cpp, NS_1.cpp ... NS_4.cpp, where NS is the namespace. Include NS.h,\n"
      "compile the sources as C++17 and link them with the library. In CMake, steprt_add_schema does\n"
      "all of this.\n\n"
      "The first schema of the first file is compiled. Schemas that it names in USE FROM or\n"
      "REFERENCE FROM may be in the same file or in the others. --entities takes supertypes, types\n"
      "of attributes and members of selects along, but no subtypes. Schemas that are added to one\n"
      "model need type numbers of their own: see --first-type.\n\n"
      "Exit status: 0 done, 1 errors in a schema, 2 wrong usage or a file that cannot be used.\n\n"
      "Example: steprt compile plant.exp --namespace plant --entities Pump,Valve --out generated");
  command->add_option("SCHEMA.exp", request->schemas, "Files in EXPRESS")->required()->type_name(" ");
  command->add_option("--out", request->folder, "Folder for the C++ files; it is made if it is missing")
      ->required()
      ->type_name("FOLDER")
      ->check(CLI::Validator(CheckFolder, ""));
  command->add_option("--namespace", request->options.nameSpace, "Namespace, such as a::b; default: the schema's name")
      ->type_name("NS")
      ->check(CLI::Validator(CheckNamespace, ""));
  command->add_option("--entities", request->options.entities, "Only these entities and what they need; default: all")
      ->type_name("A,B")
      ->delimiter(',');
  command->add_option("--parts", request->options.parts, "Number of sources for the attributes; default: 4")
      ->type_name("N")
      ->check(CLI::Range(1, kMostParts).description(""));
  command->add_option("--first-type", request->options.firstType, "First type number; default: 1")
      ->type_name("N")
      ->check(CLI::Range(0, kMostType).description(""));
  command->add_flag("--module", request->options.module, "Also make NS_module.cpp, for STEPmodel::AttachDll");
  command->callback([request, &status] { status = Compile(*request); });
}

}  // namespace steprt_tools
