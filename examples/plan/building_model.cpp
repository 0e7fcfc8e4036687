#include "building_model.h"

#include <cctype>

namespace plan {
namespace {

const struct {
  const char* name;
  std::unique_ptr<BuildingModel> (*make)();
} kSchemas[] = {{"IFC2X3", NewIfc2x3Model}, {"IFC4", NewIfc4Model}};

std::string Upper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

std::unique_ptr<BuildingModel> NewModel(const std::string& schemaName) {
  for (const auto& schema : kSchemas) {
    if (Upper(schemaName) == schema.name) return schema.make();
  }
  return nullptr;
}

std::string KnownSchemas() {
  std::string names;
  for (const auto& schema : kSchemas) names += std::string(names.empty() ? "" : " and ") + schema.name;
  return names;
}

}  // namespace plan
