#include "run.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <system_error>
#include <vector>

#include "building_model.h"
#include "compare.h"
#include "drawing.h"
#include "file_schema.h"
#include "labels.h"
#include "report.h"

namespace plan {
namespace {

constexpr int kShownKinds = 12;
constexpr char kRemark[] = "written by the example plan";
constexpr char kEditNote[] = "Edited on purpose: wall moved, door added; rooms as in the file";
constexpr bool kReadsXml = PLAN_READS_XML;  // a library can be built without

bool Fail(const std::string& text) {
  std::printf("Failed: %s\n", text.c_str());
  return false;
}

std::string InFolder(const Job& job, const std::string& name) {
  return (std::filesystem::path(job.folder) / name).string();
}

int CountInstances(STEPmodel& model) {
  int count = 0;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++count;
  return count;
}

// The model for the file's schema. Null after a message.
std::unique_ptr<BuildingModel> ModelFor(const std::string& file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return Fail("there is no file " + file), nullptr;
  const std::string schema = SchemaOf(file);
  std::unique_ptr<BuildingModel> model = NewModel(schema);
  if (!model && schema.empty()) Fail(file + " does not name its schema; it is no file of ISO 10303-21");
  if (!model && !schema.empty()) Fail(file + " is of the schema " + schema + "; this program knows " + KnownSchemas());
  return model;
}

// The same classes serve both forms. Reports() says what was wrong.
void ReadForm(steprt::Model& model, bool xml, const std::string& path) {
  Reports().Clear();
  if (xml) {
    model.Name(path.c_str());
    model.ReadXml(nullptr);
  } else {
    STEPreadOptions options;
    options.check = true;
    model.ReadStandard(path, &options);
  }
}

// Reads the file and tells the time, the reports by kind and the instances by entity.
bool ReadModel(steprt::Model& model, const std::string& file) {
  const double megabytes = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
  const auto start = std::chrono::steady_clock::now();
  ReadForm(model, IsXml(file), file);
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  if (model.IsEmpty()) {
    return Fail(file + " has nothing that can be read: " + Reports().First());
  }
  std::printf("Read %s, schema %s: %d instances, reports: %d, %.3f s, %.1f MB/s\n", file.c_str(), model.schema->name,
              CountInstances(model), Reports().Total(), time.count(), megabytes / time.count());
  Reports().Print(kShownKinds);
  std::map<std::string, int> counts;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++counts[object->EntityName()];
  for (const auto& [name, count] : counts) std::printf("  %7d  %s\n", count, name.c_str());
  return true;
}

void PrintBuilding(const Building& building) {
  std::printf("%s: %zu storeys, %zu walls, %zu rooms\n", building.name.empty() ? "Building" : building.name.c_str(),
              building.storeys.size(), building.walls.size(), building.rooms.size());
}

// Which plans are drawn, and how their files and sheets tell them from others.
struct Series {
  std::string prefix;  // of the files' names
  std::string note;    // on the sheets
  std::string only;    // the one storey to draw; empty for all
};

bool DrawPlans(Building building, const Job& job, const Series& series) {
  const double turned = AlignWithAxes(&building);
  if (turned != 0) std::printf("  turned by %.1f degrees, so that most walls run along the sheet\n", turned);
  const std::vector<FloorPlan> plans = FloorPlans(building);
  const Caption caption = {building.name, series.note, building.knowsNorth, building.north};
  const int scale = ScaleFor(plans);
  int drawn = 0, number = 0;
  for (const FloorPlan& plan : plans) {
    const std::string name = series.prefix + std::to_string(++number) + "_" + FileNameOf(plan.name) + ".svg";
    if (!series.only.empty() && series.only != plan.name) continue;
    if (plan.IsEmpty()) {
      std::printf("  %s: no wall is cut %.2f m above its floor, no plan\n", plan.name.c_str(), kCutAboveFloor);
      continue;
    }
    if (!DrawPlan(plan, SheetFor(plan, scale), caption, InFolder(job, name))) return Fail("cannot write " + name);
    std::printf("  %s: %zu parts of walls, %zu doors, %zu windows, %zu rooms\n", name.c_str(), plan.walls.size(),
                plan.doors.size(), plan.windows.size(), plan.rooms.size());
    ++drawn;
  }
  return drawn > 0 || Fail("no storey has a wall to draw");
}

// A building in which no wall has space for a door is written as it is.
bool Edit(BuildingModel& model, const Job& job) {
  const EditResult edit = model.MoveWallAndAddDoor();
  if (edit.wall.empty()) return std::printf("No wall has space for a new door: the model stays as it is\n"), true;
  std::printf("Moved wall \"%s\" by %.2f m and gave it a door of %.2f m\n", edit.wall.c_str(), edit.moved,
              edit.doorWidth);
  return DrawPlans(model.Extract(), job, {"edited_", kEditNote, edit.storey});
}

// `known`: the reports of the file itself. A reference to an instance of a wrong class, say, is reported again.
bool WriteAndCompare(steprt::Model& model, bool xml, const std::string& path, int known) {
  const int records = xml ? model.WriteXml(path, kRemark) : model.Write(path, kRemark);
  if (records < 0) return Fail("cannot write " + path);
  std::printf("Wrote %s: %d records\n", path.c_str(), records);
  if (xml && !kReadsXml) return true;

  const std::unique_ptr<BuildingModel> copy = NewModel(model.schema->name);
  ReadForm(copy->Population(), xml, path);
  Reports().Print(kShownKinds);
  if (Reports().Total() > known) return Fail("what was written was read back with more reports than the file");
  const Comparison comparison = Compare(model, copy->Population());
  std::printf("Read back: %d instances, %s\n", comparison.instances, comparison.Text().c_str());
  return comparison.lost == 0 || Fail("the model that was read back differs");
}

}  // namespace

bool Run(const Job& job) {
  const std::unique_ptr<BuildingModel> model = ModelFor(job.file);
  if (!model || !ReadModel(model->Population(), job.file)) return false;
  const int reports = Reports().Total();
  const Building building = model->Extract();
  PrintBuilding(building);
  if (building.storeys.empty()) return Fail("the file has no storey (IfcBuildingStorey), so there is nothing to draw");
  if (job.folder.empty()) return std::printf("No FOLDER is named: nothing is written\n"), true;

  std::error_code error;
  std::filesystem::create_directories(job.folder, error);
  std::printf("Floor plans in %s\n", job.folder.c_str());
  if (!DrawPlans(building, job, {})) return false;
  if (job.plansOnly) return true;
  return Edit(*model, job) && WriteAndCompare(model->Population(), false, InFolder(job, "written.ifc"), reports) &&
         WriteAndCompare(model->Population(), true, InFolder(job, "written.xml"), reports);
}

}  // namespace plan
