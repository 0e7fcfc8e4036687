// Two tables in two units. Each unit looks at the table of the other one while it is initialised.
#ifndef STEPRT_TESTS_SCHEMA_CONSTANT_TABLE_H
#define STEPRT_TESTS_SCHEMA_CONSTANT_TABLE_H

#include <string>

#include "steprt/schema.h"

namespace steprt_test {

extern APPtable<2> checkedTable;  // constinit
extern APPtable<3> plainTable;    // as a client in C++17 writes it
extern const std::string seenInPlain;

// The name of the schema and the rows up to the one that ends them.
inline std::string RowsOf(const APPobject0& schema) {
  std::string text = schema.name ? schema.name : "not built";
  for (const APPentity* row = schema.entities; row->name; ++row) {
    text += " " + std::string(row->name) + " " + std::to_string(row->type) + " " + (row->super ? row->super : "-");
  }
  return text;
}

}  // namespace steprt_test

#endif
