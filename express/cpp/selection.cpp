#include "express/cpp/selection.h"

#include <string_view>
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

struct Visible {
  const Declaration* declaration;
  std::string_view name;
};

// What the schema declares and interfaces, the nearest first: of schemas that are interfaced as a whole also what these
// USE, and so on.
std::vector<Visible> VisibleIn(const Schema& schema) {
  std::vector<Visible> visible;
  std::vector<const Schema*> visits = {&schema};
  std::unordered_set<const Schema*> seen = {&schema};
  for (std::size_t i = 0; i < visits.size(); ++i) {
    const Schema& visited = *visits[i];
    for (const auto& declaration : visited.declarations) {
      visible.push_back({declaration.get(), declaration->name.text});
    }
    for (const Interface& interface : visited.interfaces) {
      if (i > 0 && !interface.use) continue;
      for (const Interface::Item& item : interface.items) {
        visible.push_back({item.original.target, item.name.text});
      }
      const Schema* const whole = interface.whole ? interface.schema.target : nullptr;
      if (whole != nullptr && seen.insert(whole).second) visits.push_back(whole);
    }
  }
  return visible;
}

void AddNamedEntities(const Schema& schema, const std::vector<Visible>& visible, const std::vector<std::string>& names,
                      Closure& closure, Diagnostics& diagnostics) {
  std::unordered_map<std::string, const Declaration*> byName;
  for (const Visible& each : visible) byName.emplace(Fold(each.name), each.declaration);
  for (const std::string& name : names) {
    const auto found = byName.find(Fold(name));
    const Declaration* const entity = found == byName.end() ? nullptr : AsEntity(found->second);
    if (entity == nullptr) {
      diagnostics.Error(schema.name.place, Code::kUnknownName, "this schema has no entity '" + name + "'");
    }
    closure.Add(entity);
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
  const std::vector<Visible> visible = VisibleIn(*selection.schema);
  for (const Visible& each : visible) {
    if (entityNames.empty()) closure.Add(each.declaration);
    selection.renamed.emplace(each.declaration, each.name);
  }
  AddNamedEntities(*selection.schema, visible, entityNames, closure, diagnostics);
  closure.Complete();
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
