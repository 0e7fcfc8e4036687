#include "schema/lookup.h"

#include "schema/index.h"
#include "schema/rows.h"
#include "support/ascii.h"

namespace steprt {

APPentity* FindEntityByName(const char* name, APPobject0* schema) {
  if (schema && schema->index) return FindIndexRow(name, schema->index);
  return FindRow(schema, [&](const APPentity& row) { return EqualNoCase(row.name, name); });
}

APPentity* FindEntityByType(int type, APPobject0* schema) {
  if (schema && schema->index) return FindIndexType(type, schema->index);
  return FindEntityLinear(type, schema);
}

APPentity* FindEntityLinear(int type, APPobject0* schema) {
  return FindRow(schema, [&](const APPentity& row) { return row.type == type; });
}

bool IsSubtype(APPobject0* schema, int expected, int actual) {
  if (expected < 0 || expected == actual) return true;
  const APPentity* row = FindEntityByType(actual, schema);
  // `mark` is an earlier row of the walk, renewed at each power of two. In a ring, the walk returns to it.
  const APPentity* mark = nullptr;
  for (unsigned step = 1; row; ++step) {
    if (row->type == expected) return true;
    if (!row->super || row == mark) return false;
    if ((step & (step - 1)) == 0) mark = row;
    row = FindEntityByName(row->super, schema);
  }
  return false;
}

}  // namespace steprt
