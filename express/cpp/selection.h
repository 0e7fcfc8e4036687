// Which declarations of a model become C++.
#ifndef STEPRT_EXPRESS_CPP_SELECTION_H
#define STEPRT_EXPRESS_CPP_SELECTION_H

#include <string>
#include <unordered_map>
#include <vector>

#include "express/diagnostic.h"
#include "express/schema.h"

namespace express::cpp {

struct Selection {
  const Schema* schema = nullptr;  // the one that names the descriptor
  // In the order of the sources, declarations of `schema` first.
  std::vector<const Entity*> entities;
  std::vector<const DefinedType*> types;  // enumerations and selects
  // What `schema` calls the declarations that it can name. A declaration that is only needed keeps its own name.
  std::unordered_map<const Declaration*, std::string> renamed;

  // The name that counts in `schema`, and so in files.
  std::string NameOf(const Declaration& declaration) const;
};

// Takes the first schema of the model: all that it declares or interfaces, or only the entities of these names, if
// there are any. What these need comes along: their supertypes, the types of their attributes, and the members of
// selects, but no subtypes. A name that is no entity is an error, and so is a schema without any.
Selection SelectDeclarations(const Model& model, const std::vector<std::string>& entityNames, Diagnostics& diagnostics);

}  // namespace express::cpp

#endif
