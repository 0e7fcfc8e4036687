// Reads a building model, lists what it holds, draws a floor plan of each storey, moves a wall and adds a door, writes
// the model as clear text and as XML, and reads both back.
//
// The way of the data: a file, the classes that the build compiles from ifc2x3.exp and ifc4.exp (building_model.h), a
// building without a schema (building.h), its floor plans (floor_plan.h), and drawings (drawing.h).
#include <cstdio>
#include <cstring>

#include "building_model.h"
#include "run.h"

namespace {

int PrintUsage(std::FILE* out) {
  std::fprintf(out,
               "plan [--plans] FILE [FOLDER] - floor plans of a building model\n"
               "\n"
               "  FILE     a building model, as clear text (ISO 10303-21) or as the XML that this program writes; the\n"
               "           schemas are %s\n"
               "  FOLDER   gets a plan of each storey as SVG; then a wall is moved and gets a door, and the model is\n"
               "           written as written.ifc and written.xml, read back and compared. Without a FOLDER the\n"
               "           program lists what the file has, and writes nothing\n"
               "  --plans  draws the plans and leaves out the rest\n"
               "  --help   prints this text\n"
               "\n"
               "The exit code is 0 if all of this succeeded, 1 if not, and 2 for arguments that are wrong.\n",
               plan::KnownSchemas().c_str());
  return out == stdout ? 0 : 2;
}

}  // namespace

int main(int count, char** arguments) {
  plan::Job job;
  for (int i = 1; i < count; ++i) {
    const char* argument = arguments[i];
    if (std::strcmp(argument, "--help") == 0 || std::strcmp(argument, "-h") == 0) return PrintUsage(stdout);
    if (std::strcmp(argument, "--plans") == 0) {
      job.plansOnly = true;
    } else if (argument[0] == '-' && argument[1] != '\0') {
      std::fprintf(stderr, "plan: unknown option %s; see plan --help\n", argument);
      return 2;
    } else if (job.file.empty()) {
      job.file = argument;
    } else if (job.folder.empty()) {
      job.folder = argument;
    } else {
      std::fprintf(stderr, "plan: one FILE and one FOLDER; see plan --help\n");
      return 2;
    }
  }
  return job.file.empty() ? PrintUsage(stderr) : plan::Run(job) ? 0 : 1;
}
