// Reads a building model, lists what it holds, draws a floor plan of each storey, moves a wall and adds a door, writes
// the model as clear text and as XML, and reads both back.
//
//   plan [FILE] [FOLDER]
//
//   FILE    an IFC2X3 file; the house beside this source when it is left out
//   FOLDER  where the plans and the written model go; the current one when it is left out
//
// The exit code is 0 when the model was read, at least one plan was drawn, the edit was made, and what was written came
// back equal and without a report.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <vector>

#include "compare.h"
#include "drawing.h"
#include "edit.h"
#include "labels.h"
#include "report.h"
#include "schema.h"
#include "transfer.h"

namespace plan {
namespace {

constexpr int kShownReports = 3;
constexpr int kShownKinds = 12;
// In place of the project's name: the narrowest sheet has no room for both.
constexpr char kEditNote[] = "Edited on purpose: wall moved, door added; rooms as in the file";
constexpr bool kReadsXml = PLAN_READS_XML;  // a library can be built without

struct Job {
  std::string file, folder;
  std::string In(const std::string& name) const { return (std::filesystem::path(folder) / name).string(); }
};

bool Fail(const char* text) {
  std::printf("Failed: %s\n", text);
  return false;
}

int CountInstances(STEPmodel& model) {
  int count = 0;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++count;
  return count;
}

void PrintEntities(STEPmodel& model) {
  std::map<std::string, int> counts;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++counts[object->EntityName()];
  for (const auto& [name, count] : counts) std::printf("  %7d  %s\n", count, name.c_str());
}

// Reads the file and tells the time, the reports by kind and the instances by entity.
bool ReadModel(STEPmodel& model, std::string file) {
  std::error_code error;
  const double megabytes = static_cast<double>(std::filesystem::file_size(file, error)) / 1e6;
  if (error) return Fail("the file is not there");
  char schemaName[] = "ifc2x3";
  std::printf("Schema %s, which %s \"%s\" in any case\n", model.schema->name,
              model.IsSchema(schemaName) ? "answers to" : "does not answer to", schemaName);

  Reports().Clear();
  const auto start = std::chrono::steady_clock::now();
  const int errors = model.Read(true, file.data());
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  std::printf("Read %s: %d instances, %d reports, %.3f s, %.1f MB/s\n", file.c_str(), CountInstances(model), errors,
              time.count(), megabytes / time.count());
  Reports().Print(kShownKinds);
  if (model.IsEmpty()) return Fail("nothing was read");
  std::printf("Instances by entity\n");
  PrintEntities(model);
  return true;
}

std::string ProjectName(STEPmodel& model) {
  Project* project = First<Project>(model);
  if (!project) return "";
  return LabelOf(project->longName.IsEmpty() ? project->name : project->longName);
}

// The middle of the title block.
std::string Title(STEPmodel& model, bool isEdited) { return isEdited ? kEditNote : ProjectName(model); }

// Draws every storey; `prefix`, empty before the edit, precedes the names of the files. `only`: the one storey
// to draw, or empty.
bool DrawPlans(STEPmodel& model, const Job& job, const char* prefix, const std::string& only) {
  const std::vector<FloorPlan> plans = FloorPlans(model);
  const Sheet sheet = SheetFor(plans);
  const std::string title = Title(model, *prefix != '\0');
  int drawn = 0, number = 0;
  for (const FloorPlan& plan : plans) {
    const std::string name = prefix + std::to_string(++number) + "_" + FileNameOf(plan.name) + ".svg";
    if (!only.empty() && only != plan.name) continue;
    if (plan.IsEmpty()) {
      std::printf("  %s: nothing stands %.2f m above its floor, no plan\n", plan.name.c_str(), kCutAboveFloor);
      continue;
    }
    if (!DrawPlan(plan, sheet, title, job.In(name))) return Fail("a plan cannot be written");
    std::printf("  %s: %zu parts of walls, %zu doors, %zu windows, %zu rooms\n", name.c_str(), plan.walls.size(),
                plan.doors.size(), plan.windows.size(), plan.rooms.size());
    ++drawn;
  }
  return drawn > 0 || Fail("no plan was drawn");
}

bool Edit(STEPmodel& model, const Job& job) {
  const EditResult edit = MoveWallAndAddDoor(model);
  if (edit.wall.empty() || edit.moved <= 0 || edit.doorWidth <= 0) return Fail("no wall was found for the new door");
  std::printf("Moved wall \"%s\" by %.2f m and gave it a door of %.2f m\n", edit.wall.c_str(), edit.moved,
              edit.doorWidth);
  return DrawPlans(model, job, "edited_", edit.storey);
}

// The two forms of a file. The same functions of the schema serve both.
int WriteForm(STEPmodel& model, bool xml, std::string path) {
  const char* remark = "written by the example plan";
  return xml ? model.WriteXml(path.data(), remark) : model.Write(path.data(), remark);
}

int ReadForm(STEPmodel& model, bool xml, std::string path) {
  if (!xml) return model.Read(true, path.data());
  model.Name(path.c_str());
  return model.ReadXml(nullptr);
}

bool WriteAndCompare(BuildingModel& model, bool xml, const std::string& path) {
  Reports().Clear();
  const int records = WriteForm(model, xml, path);
  if (records < 0) return Fail("the model cannot be written");
  std::printf("Wrote %s: %d records\n", path.c_str(), records);

  BuildingModel copy(model);
  const KeepNullMarks keep;
  const int errors = ReadForm(copy, xml, path);
  Reports().Print(kShownKinds);
  if (errors != 0) return Fail("what was written was not read back without a report");
  const Comparison comparison = Compare(model, copy);
  if (!comparison.isSound) return Fail(("the populations differ: " + comparison.difference).c_str());
  std::printf("Read back: %d instances, reals at the six significant digits that are written: %s\n",
              comparison.instances, comparison.Text().c_str());
  return true;
}

bool Run(const Job& job) {
  std::error_code error;
  std::filesystem::create_directories(job.folder, error);
  BuildingModel model(kShownReports);
  if (!ReadModel(model, job.file)) return false;
  std::printf("Floor plans in %s\n", job.folder.c_str());
  if (!DrawPlans(model, job, "", "") || !Edit(model, job)) return false;
  if (!WriteAndCompare(model, false, job.In("edited.ifc"))) return false;
  return !kReadsXml || WriteAndCompare(model, true, job.In("edited.xml"));
}

}  // namespace
}  // namespace plan

int main(int count, char** arguments) {
  const plan::Job job = {count > 1 ? arguments[1] : PLAN_HOUSE_FILE, count > 2 ? arguments[2] : "."};
  return plan::Run(job) ? 0 : 1;
}
