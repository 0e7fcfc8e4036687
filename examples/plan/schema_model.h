// BuildingModel for one schema. Each schema_*.cpp makes one of it, with a struct that names the classes of its schema.
#ifndef PLAN_SCHEMA_MODEL_H
#define PLAN_SCHEMA_MODEL_H

#include "building_model.h"
#include "building_reader.h"
#include "editor.h"
#include "report.h"

namespace plan {

template <class Ifc>
class SchemaModel final : public BuildingModel {
 public:
  SchemaModel() { model_.schema->errorProc = TakeReport; }

  steprt::Model& Population() override { return model_; }
  Building Extract() override { return BuildingReader<Ifc>(model_).Read(); }
  EditResult MoveWallAndAddDoor() override { return Editor<Ifc>(model_).Run(); }

 private:
  typename Ifc::Model model_;
};

}  // namespace plan

#endif
