#include "express/cpp/selection.h"

#include <unordered_set>

#include "express/cpp/names.h"

namespace express::cpp {
namespace {

// Collects declarations with all that they need.
class Closure {
 public:
  void Add(const Declaration* declaration) {
    if (declaration != nullptr && chosen_.insert(declaration).second) open_.push_back(declaration);
  }

  void Complete() {
    while (!open_.empty()) {
      const Declaration* const next = open_.back();
      open_.pop_back();
      if (const Entity* entity = AsEntity(next)) AddNeedsOf(*entity);
      if (const DefinedType* type = AsType(next)) AddNeedsOf(*type);
    }
  }

  bool Has(const Declaration* declaration) const { return chosen_.count(declaration) > 0; }

 private:
  void AddNeedsOf(const Entity& entity) {
    for (const auto& supertype : entity.supertypes) Add(supertype.target);
    for (const Attribute& attribute : entity.attributes) {
      if (attribute.kind == Attribute::Kind::kExplicit) AddNamed(attribute.type.get());
    }
  }

  void AddNeedsOf(const DefinedType& type) {
    AddNamed(type.underlying.get());
    for (const Declaration* member : type.allMembers) Add(member);
  }

  void AddNamed(const Type* type) {
    while (type != nullptr && type->IsAggregate()) type = type->element.get();
    if (type != nullptr) Add(type->named.target);
  }

  std::unordered_set<const Declaration*> chosen_;
  std::vector<const Declaration*> open_;
};

void AddNamedEntities(const Schema& schema, const std::vector<std::string>& names, Closure& closure,
                      Diagnostics& diagnostics) {
  for (const std::string& name : names) {
    const Declaration* const entity = AsEntity(schema.Find(name));
    if (entity == nullptr) {
      diagnostics.Error(schema.name.place, Code::kUnknownName, "this schema has no entity '" + name + "'");
    }
    closure.Add(entity);
  }
}

void AddAll(const Schema& schema, Closure& closure) {
  for (const auto& declaration : schema.declarations) closure.Add(declaration.get());
  for (const auto& [name, entry] : schema.names) closure.Add(entry.declaration);
  for (const Interface& interface : schema.interfaces) {
    if (!interface.whole || interface.schema.target == nullptr) continue;
    for (const auto& declaration : interface.schema.target->declarations) closure.Add(declaration.get());
  }
}

}  // namespace

std::string Selection::NameOf(const Declaration& declaration) const {
  const auto found = renamed.find(&declaration);
  return found == renamed.end() ? std::string(declaration.name.text) : found->second;
}

Selection SelectDeclarations(const Model& model, const std::vector<std::string>& entityNames,
                             Diagnostics& diagnostics) {
  Selection selection;
  selection.schema = model.schemas.front().get();
  Closure closure;
  if (entityNames.empty()) {
    AddAll(*selection.schema, closure);
  } else {
    AddNamedEntities(*selection.schema, entityNames, closure, diagnostics);
  }
  closure.Complete();
  for (const Interface& interface : selection.schema->interfaces) {
    for (const Interface::Item& item : interface.items) {
      selection.renamed.emplace(item.original.target, item.name.text);
    }
  }
  for (const auto& schema : model.schemas) {
    for (const Entity* entity : schema->entities) {
      if (closure.Has(entity)) selection.entities.push_back(entity);
    }
    for (const DefinedType* type : schema->types) {
      if (type->form != DefinedType::Form::kUnderlying && closure.Has(type)) selection.types.push_back(type);
    }
  }
  if (selection.entities.empty() && diagnostics.Errors() == 0) {
    diagnostics.Error(selection.schema->name.place, Code::kUnknownName, "this schema has no entities");
  }
  return selection;
}

}  // namespace express::cpp
