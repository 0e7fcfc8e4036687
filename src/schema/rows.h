// The only walk over the rows of a chain. It follows the order of the chain and of the rows, on which several results
// depend: the first row of a name or a type wins.
#ifndef STEPRT_SCHEMA_ROWS_H
#define STEPRT_SCHEMA_ROWS_H

#include "steprt/schema.h"

namespace steprt {

// The first row for which `matches` returns true; null if there is none.
template <typename Predicate>
APPentity* FindRow(APPobject0* schema, Predicate matches) {
  for (; schema; schema = schema->next) {
    for (APPentity* row = schema->entities; row->name; ++row) {
      if (matches(*row)) return row;
    }
  }
  return nullptr;
}

template <typename Action>
void ForEachRow(APPobject0* schema, Action action) {
  FindRow(schema, [&](APPentity& row) {
    action(row);
    return false;
  });
}

}  // namespace steprt

#endif
