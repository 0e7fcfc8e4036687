// Members of STEPmodel for libraries and the schemas that come with them.
#include "platform/modules.h"
#include "schema/chain.h"
#include "steprt/model.h"

namespace {

using AttachEntry = bool (*)(STEPmodel*);

}  // namespace

HINSTANCE STEPmodel::AttachDll(const char* path, const char* entryName) {
  HINSTANCE module = steprt::LoadModule(path);
  if (!module || !entryName) return module;
  const auto attach = reinterpret_cast<AttachEntry>(steprt::FindEntry(module, entryName));
  if (attach && attach(this)) return module;
  steprt::ReleaseModule(module);
  return nullptr;
}

int STEPmodel::AddModel(STEPmodel* other) {
  if (!schema || !other || !other->schema) return 0;
  if (!steprt::FindSchema(schema, steprt::NameOf(*other->schema))) steprt::AppendSchema(schema, other->schema);
  return 1;
}

STEPlib* STEPmodel::GetLib(const char* schemaName) {
  const APPobject0* found = schemaName ? steprt::FindSchema(schema, schemaName) : nullptr;
  return found ? found->lib : nullptr;
}

void STEPmodel::SetLib(STEPlib* lib) {
  if (schema) schema->lib = lib;
}
