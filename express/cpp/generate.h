// C++ for a schema: one class for each entity, on the attribute types of steprt/record.h.
//
//   ns.h               enumerations, selects, entities (each supertype before its subtypes), ns::Model
//   ns.cpp             the names of enumerators, what selects allow, the descriptor
//   ns_1.cpp, ns_2.cpp ...   the attributes of each entity by name, in parts that compile at the same time
//   ns_module.cpp      the entry of a module, if one is asked for
//
// The names of the files depend on the options alone, so that a build system knows them in advance. The same model and
// options give the same bytes.
#ifndef STEPRT_EXPRESS_CPP_GENERATE_H
#define STEPRT_EXPRESS_CPP_GENERATE_H

#include <string>
#include <vector>

#include "express/diagnostic.h"
#include "express/schema.h"

namespace express::cpp {

struct Options {
  std::string nameSpace;  // empty: the schema's name in small letters, with an underscore if C++ has it
  std::vector<std::string> entities;
  int parts = 4;      // 1 or more
  int firstType = 1;  // the first type number
  bool module = false;
};

struct File {
  std::string name;
  std::string text;
};

// The files, or none after an error. `model` holds no error and at least one schema; its first schema is compiled.
std::vector<File> Generate(const Model& model, const Options& options, Diagnostics& diagnostics);

}  // namespace express::cpp

#endif
