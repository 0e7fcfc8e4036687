// Members of STEPmodel that only query or set its schema.
#include "schema/chain.h"
#include "schema/lookup.h"
#include "steprt/model.h"
#include "support/ascii.h"

const char* STEPmodel::EntityName(int type) {
  const APPentity* row = steprt::FindEntityLinear(type, schema);
  return row ? row->name : "Unknown";
}

bool STEPmodel::IsSchema(char* schemaName) {
  return schema && schemaName && steprt::EqualNoCase(steprt::NameOf(*schema), schemaName);
}

void STEPmodel::AppObj(APPobject0* descriptor) { schema = descriptor; }
