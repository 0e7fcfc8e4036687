// The walk over a chain's rows, in chain order and row order.
#ifndef STEPRT_SCHEMA_ROWS_H
#define STEPRT_SCHEMA_ROWS_H

#include "steprt/schema.h"

namespace steprt {

// The first row for which `matches` is true, or null.
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
  FindRow(schema, [&](APPentity& row) { return action(row), false; });
}

}  // namespace steprt

#endif
