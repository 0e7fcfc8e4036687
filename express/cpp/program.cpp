#include "express/cpp/program.h"

#include <algorithm>
#include <set>

#include "express/cpp/names.h"
#include "express/cpp/types.h"

namespace express::cpp {
namespace {

// What the generator spends on entities with several supertypes, in classes and in selects, which can be the square of
// their count.
constexpr std::size_t kMostSteps = 200'000;

// Also a type that renames an enumeration.
bool IsEnumeration(const DefinedType& type) {
  const DefinedType* last = &type;
  while (last != nullptr && last->form == DefinedType::Form::kUnderlying) last = AsType(last->underlying->named.target);
  return last != nullptr && last->form == DefinedType::Form::kEnumeration;
}

class Builder {
 public:
  Builder(const Selection& selection, const std::string& nameSpace, Diagnostics& diagnostics)
      : selection_(selection), diagnostics_(diagnostics) {
    program_.nameSpace = nameSpace;
    program_.schemaName = UpperCase(selection.schema->name.text);
  }

  Program Build(int firstType) {
    NameTypes();
    MakeClasses();
    NumberClasses(firstType);
    for (const auto& entity : program_.classes) FindFurtherSubtypes(*entity);
    for (Select& select : program_.selects) AddMembers(select);
    if (steps_ > kMostSteps) {
      diagnostics_.Error(selection_.schema->name.place, Code::kTooLarge,
                         "the entities with several supertypes have too many supertypes to be listed");
      return std::move(program_);
    }
    for (const auto& entity : program_.classes) AddMembers(*entity);
    return std::move(program_);
  }

 private:
  std::string TakeName(const Declaration& declaration, std::string (*make)(std::string_view) = ClassName) {
    std::string name = scope_.Take(make(selection_.NameOf(declaration)));
    names_[&declaration] = name;
    return name;
  }

  void NameTypes() {
    for (const Entity* entity : selection_.entities) TakeName(*entity);
    for (const DefinedType* type : selection_.types) {
      if (type->form == DefinedType::Form::kSelect) {
        program_.selects.push_back({type, TakeName(*type, SelectName), {}, false, {}});
      } else {
        program_.enumerations.push_back({type, TakeName(*type), {}});
        Scope scope(Scope::Kind::kEnumeration);
        for (const Name& item : type->allItems) {
          program_.enumerations.back().enumerators.push_back(scope.Take(std::string(item.text)));
        }
      }
    }
  }

  void MakeClasses() {
    for (const Entity* entity : selection_.entities) {
      auto made = std::make_unique<Class>();
      made->entity = entity;
      made->name = names_[entity];
      made->keyword = UpperCase(selection_.NameOf(*entity));
      CheckKeyword(*made);
      byEntity_[entity] = made.get();
      program_.classes.push_back(std::move(made));
    }
    for (const auto& made : program_.classes) {
      if (made->entity->supertypes.empty()) continue;
      Class* const base = byEntity_[made->entity->supertypes.front().target];
      made->base = base;
      base->derived.push_back(made.get());
    }
  }

  // Two schemas may have entities of one name. Files could not tell them apart.
  void CheckKeyword(const Class& made) {
    const auto [first, isNew] = byKeyword_.emplace(made.keyword, made.entity);
    if (isNew) return;
    diagnostics_.Error(made.entity->name.place, Code::kDuplicateName,
                       "files cannot tell this entity from another '" + std::string(made.entity->name.text) +
                           "': give it a new name with USE FROM ... AS");
    diagnostics_.Note(first->second->name.place, "the other one is here");
  }

  // Depth first, on a stack of its own.
  void NumberClasses(int next) {
    std::vector<Class*> open;
    for (auto root = program_.classes.rbegin(); root != program_.classes.rend(); ++root) {
      if ((*root)->base == nullptr) open.push_back(root->get());
    }
    std::vector<Class*> order;
    while (!open.empty()) {
      Class* const made = open.back();
      open.pop_back();
      made->type = made->last = next++;
      order.push_back(made);
      open.insert(open.end(), made->derived.rbegin(), made->derived.rend());
    }
    for (auto made = order.rbegin(); made != order.rend(); ++made) {
      for (const Class* derived : (*made)->derived) (*made)->last = std::max((*made)->last, derived->last);
    }
    std::sort(program_.classes.begin(), program_.classes.end(),
              [](const auto& a, const auto& b) { return a->type < b->type; });
  }

  // Enters a class with several supertypes with all entities that it specialises by a further one.
  void FindFurtherSubtypes(const Class& made) {
    if (made.entity->supertypes.size() < 2 || steps_ > kMostSteps) return;
    std::set<const Entity*> seen;
    for (const Class* base = &made; base != nullptr; base = base->base) seen.insert(base->entity);
    std::vector<const Entity*> open = {made.entity};
    for (const Class* base = made.base; base != nullptr; base = base->base, ++steps_) open.push_back(base->entity);
    while (!open.empty()) {
      const Entity* const entity = open.back();
      open.pop_back();
      for (const auto& supertype : entity->supertypes) {
        if (!seen.insert(supertype.target).second) continue;
        byEntity_[supertype.target]->furtherSubtypes.push_back(&made);
        open.push_back(supertype.target);
        ++steps_;
      }
    }
  }

  void AddMembers(Select& select) {
    for (const Declaration* member : select.type->allMembers) {
      if (const DefinedType* type = AsType(member)) {
        select.keywords.push_back(UpperCase(selection_.NameOf(*member)));
        select.takesEnumerators = select.takesEnumerators || IsEnumeration(*type);
      } else {
        select.classes.push_back(byEntity_[member]);
        steps_ += select.classes.back()->furtherSubtypes.size();
      }
    }
  }

  // The base is complete: it has a smaller number.
  void AddMembers(Class& made) {
    Scope members(Scope::Kind::kMembers, &scope_);
    Scope elements(Scope::Kind::kElements);
    if (made.base != nullptr) {
      made.slots = made.base->slots;
      for (const Member* member : made.slots) {
        members.Take(member->name);
        elements.Take(member->element);
      }
    }
    for (std::size_t i = made.slots.size(); i < made.entity->slots.size(); ++i) {
      const Attribute* const attribute = made.entity->slots[i].root;
      const std::string name(attribute->name.text);
      made.members.push_back(std::make_unique<Member>(
          Member{attribute, members.Take(name), elements.Take(name), types_.Of(*attribute->type)}));
      made.slots.push_back(made.members.back().get());
    }
    for (std::size_t i = 0; i < made.slots.size(); ++i) {
      const bool inherited = made.base != nullptr && i < made.base->slots.size();
      const bool known = inherited && made.base->entity->slots[i].derived;
      if (made.entity->slots[i].derived && !known) made.derives.push_back(made.slots[i]);
    }
  }

  const Selection& selection_;
  Diagnostics& diagnostics_;
  std::size_t steps_ = 0;  // from entities with several supertypes to all of these
  Program program_;
  Scope scope_{Scope::Kind::kNamespace};
  ClassNames names_;
  TypeTexts types_{names_};
  std::unordered_map<const Declaration*, Class*> byEntity_;
  std::unordered_map<std::string, const Entity*> byKeyword_;
};

}  // namespace

bool Program::HasFurtherSubtypes() const {
  return std::any_of(classes.begin(), classes.end(), [](const auto& made) { return !made->furtherSubtypes.empty(); });
}

Program BuildProgram(const Selection& selection, const std::string& nameSpace, int firstType,
                     Diagnostics& diagnostics) {
  return Builder(selection, nameSpace, diagnostics).Build(firstType);
}

}  // namespace express::cpp
