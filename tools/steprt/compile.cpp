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
#include "express/load.h"

namespace steprt_tools {
namespace {

constexpr int kMostParts = 1000;

struct Request {
  std::vector<std::string> schemas;
  std::string folder;
  express::cpp::Options options;
};

// Returns the exit status for what was printed.
int Print(const express::Diagnostics& diagnostics) {
  bool unreadable = false;
  for (const express::Diagnostic& diagnostic : diagnostics.All()) {
    std::fputs(Format(diagnostic).c_str(), stderr);
    unreadable = unreadable || diagnostic.code == express::Code::kUnreadableFile;
  }
  if (unreadable) return kUnusable;
  return diagnostics.Errors() > 0 ? kFindings : kClean;
}

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
  std::vector<std::unique_ptr<express::Source>> sources;
  for (const std::string& path : request.schemas) {
    auto source = express::ReadSource(path, diagnostics);
    if (source) sources.push_back(std::move(source));
  }
  if (diagnostics.Errors() > 0) return Print(diagnostics);
  const auto model = express::Load(std::move(sources), diagnostics);
  std::vector<express::cpp::File> files;
  if (diagnostics.Errors() == 0) files = Generate(*model, request.options, diagnostics);
  const int status = Print(diagnostics);
  return status == kClean ? WriteFiles(files, request.folder) : status;
}

}  // namespace

void AddCompile(CLI::App& app, int& status) {
  auto request = std::make_shared<Request>();
  CLI::App* const command = app.add_subcommand("compile", "Make C++ classes from schemas in EXPRESS (ISO 10303-11).");
  command->footer(
      "The folder receives NS.h, NS.cpp, NS_1.cpp ... NS_4.cpp, where NS is the namespace. Include\n"
      "NS.h, compile the sources as C++17 and link them with the library. With CMake,\n"
      "steprt_add_schema does all of this.\n\n"
      "The first schema of the first file is compiled. Schemas that it names in USE FROM or\n"
      "REFERENCE FROM may be in the same file or in the others.\n\n"
      "Exit status: 0 done, 1 errors in a schema, 2 wrong usage or a file that cannot be read or\n"
      "written.\n\n"
      "Example: steprt compile plant.exp --namespace plant --entities Pump,Valve --out generated");
  command->add_option("SCHEMA.exp", request->schemas, "The files, in EXPRESS")->required();
  command->add_option("--out", request->folder, "The folder for the C++ files; it is made if it is not there")
      ->required()
      ->type_name("FOLDER")
      ->check(CLI::Validator(
          [](const std::string& text) { return text.empty() ? "an empty name is no folder" : std::string(); }, ""));
  command
      ->add_option("--namespace", request->options.nameSpace,
                   "The namespace, which may be nested (a::b); by default the schema's name in small letters")
      ->type_name("NS")
      ->check(CLI::Validator(
          [](const std::string& text) {
            return express::cpp::IsNamespace(text) ? std::string() : "'" + text + "' cannot be a namespace";
          },
          ""));
  command
      ->add_option("--entities", request->options.entities,
                   "Only these entities and what they need: supertypes, types of attributes, members of selects; by "
                   "default all entities")
      ->type_name("A,B,...")
      ->delimiter(',');
  command
      ->add_option("--parts", request->options.parts,
                   "The count of sources that hold the attributes, to compile in parallel")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::Range(1, kMostParts));
  command
      ->add_option("--first-type", request->options.firstType,
                   "The first type number. Schemas that are added to one model need numbers of their own")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::Range(0, 1'000'000'000));
  command->add_flag("--module", request->options.module,
                    "Also make NS_module.cpp, with the entry Attach that STEPmodel::AttachDll calls");
  command->callback([request, &status] { status = Compile(*request); });
}

}  // namespace steprt_tools
