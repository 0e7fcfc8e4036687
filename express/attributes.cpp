#include <string>
#include <unordered_set>
#include <utility>

#include "resolver.h"

namespace express {

namespace {

using SlotIndex = std::unordered_map<const Attribute*, std::size_t>;  // by root

void EnterNames(Context& context, Entity& entity) {
  for (Attribute& attribute : entity.attributes) {
    const auto [at, isNew] = entity.attributesByName.emplace(Fold(attribute.name.text), &attribute);
    if (isNew) continue;
    context.Error(attribute.name, Code::kDuplicateName,
                  "expected another name, " + Quoted(attribute.name) + " is an attribute of this entity already");
    context.diagnostics.Note(at->second->name.place, "the first one is here");
  }
}

// The attribute of that name which the entity declares or inherits; the nearest wins. `complete` becomes false if a
// supertype is missing or the budget is spent, so that null says nothing.
Attribute* FindAttribute(Context& context, const Entity& entity, const Name& name, bool& complete) {
  const std::string folded = Fold(name.text);
  std::vector<const Entity*> visits{&entity};
  std::unordered_set<const Entity*> seen{&entity};
  for (std::size_t i = 0; i < visits.size(); ++i) {
    const auto found = visits[i]->attributesByName.find(folded);
    if (found != visits[i]->attributesByName.end()) return found->second;
    complete = complete && context.budget.Take(1 + visits[i]->supertypes.size(), name.place);
    if (!complete) return nullptr;
    for (const Reference<Entity>& supertype : visits[i]->supertypes) {
      if (supertype.target == nullptr) complete = false;
      if (supertype.target != nullptr && seen.insert(supertype.target).second) visits.push_back(supertype.target);
    }
  }
  return nullptr;
}

// Null after a report, or if something that was reported before is missing.
Attribute* Require(Context& context, const Entity* entity, const Name& name) {
  if (entity == nullptr) return nullptr;
  bool complete = true;
  Attribute* const attribute = FindAttribute(context, *entity, name, complete);
  if (attribute == nullptr && complete) {
    context.Error(name, Code::kUnknownAttribute,
                  "expected an attribute of " + Quoted(entity->name) + ", none is called " + Quoted(name));
    context.diagnostics.Note(entity->name.place, "the entity is declared here");
  }
  return attribute;
}

// Whether `later` redeclares `earlier`, at once or by a chain.
bool Refines(Context& context, const Attribute* later, const Attribute* earlier) {
  while (later != nullptr && later != earlier && context.budget.Take(1, later->name.place)) later = later->redeclared;
  return later == earlier;
}

// An attribute is redeclared by one of its kind, and an explicit one by a derived one too.
bool MayRedeclare(const Attribute& attribute) {
  const Attribute* const earlier = attribute.redeclared;
  if (earlier == nullptr || earlier->kind == attribute.kind) return true;
  return earlier->kind == Attribute::Kind::kExplicit && attribute.kind == Attribute::Kind::kDerived;
}

// Collects the slots of one entity. All its supertypes have theirs.
class SlotMaker {
 public:
  SlotMaker(Context& context, Entity& entity) : context_(context), entity_(entity) {}

  // False if the budget is spent; the entity then has no slots.
  bool Run() {
    if (!Inherit()) return false;
    for (Attribute& attribute : entity_.attributes) {
      if (attribute.redeclaration) {
        Redeclare(attribute);
      } else {
        attribute.root = &attribute;
        if (attribute.kind == Attribute::Kind::kExplicit) slots_.push_back({&attribute, &attribute, false});
      }
    }
    entity_.slots = std::move(slots_);
    return true;
  }

 private:
  bool Inherit() {
    for (const Reference<Entity>& supertype : entity_.supertypes) {
      if (supertype.target == nullptr) {
        complete_ = false;
        continue;
      }
      const std::vector<Slot>& inherited = supertype.target->slots;
      if (!context_.budget.Take(1 + inherited.size(), supertype.name.place)) return false;
      if (slots_.empty()) {
        slots_ = inherited;
      } else {
        for (const Slot& slot : inherited) Merge(slot);
      }
    }
    return true;
  }

  // Two supertypes may share an ancestor. Its slots come once, with the later of two redeclarations.
  void Merge(const Slot& slot) {
    const auto [at, isNew] = Index().emplace(slot.root, slots_.size());
    if (isNew) {
      slots_.push_back(slot);
      return;
    }
    Slot& mine = slots_[at->second];
    mine.derived = mine.derived || slot.derived;
    if (Refines(context_, slot.effective, mine.effective)) mine.effective = slot.effective;
  }

  // The index is made when it is first needed: most entities have one supertype and redeclare nothing.
  SlotIndex& Index() {
    if (index_.empty()) {
      for (std::size_t i = 0; i < slots_.size(); ++i) index_.emplace(slots_[i].root, i);
    }
    return index_;
  }

  void Redeclare(Attribute& attribute) {
    const Attribute::Redeclaration& redeclaration = *attribute.redeclaration;
    const Entity* const owner = redeclaration.entity.target;
    if (owner == &entity_) return ReportStranger(redeclaration);
    attribute.redeclared = Require(context_, owner, redeclaration.attribute);
    attribute.root = attribute.redeclared == nullptr ? nullptr : attribute.redeclared->root;
    if (!MayRedeclare(attribute)) return ReportKind(attribute);
    if (attribute.root == nullptr || attribute.root->kind != Attribute::Kind::kExplicit) return;
    const auto found = Index().find(attribute.root);
    if (found == Index().end()) {
      if (complete_) ReportStranger(redeclaration);
      return;
    }
    Slot& slot = slots_[found->second];
    slot.effective = &attribute;
    slot.derived = slot.derived || attribute.kind == Attribute::Kind::kDerived;
  }

  void ReportKind(const Attribute& attribute) {
    context_.Error(attribute.redeclaration->attribute, Code::kWrongKind,
                   "expected an attribute of the same kind, or an explicit one to derive: " +
                       Quoted(attribute.redeclaration->attribute) + " is neither");
    context_.diagnostics.Note(attribute.redeclared->name.place, "it is declared here");
  }

  void ReportStranger(const Attribute::Redeclaration& redeclaration) {
    context_.Error(
        redeclaration.entity.name, Code::kNotSupertype,
        "expected a supertype of " + Quoted(entity_.name) + ", " + Quoted(redeclaration.entity.name) + " is none");
  }

  Context& context_;
  Entity& entity_;
  std::vector<Slot> slots_;
  SlotIndex index_;
  bool complete_ = true;  // no supertype is missing
};

// The entity that an inverse attribute refers from, inside SET or BAG.
const Entity* InverseTarget(const Attribute& attribute) {
  const Type* type = attribute.type.get();
  if (type->element != nullptr) type = type->element.get();
  return AsEntity(static_cast<const Declaration*>(type->named.target));
}

}  // namespace

void ResolveAttributes(Context& context, const std::vector<Entity*>& supertypesFirst) {
  for (Entity* entity : supertypesFirst) EnterNames(context, *entity);
  for (Entity* entity : supertypesFirst) {
    if (context.diagnostics.Full() || !SlotMaker(context, *entity).Run()) return;
  }
  for (Entity* entity : supertypesFirst) {
    for (Attribute& attribute : entity->attributes) {
      if (attribute.kind != Attribute::Kind::kInverse) continue;
      const Entity* const written = attribute.inverseEntity ? attribute.inverseEntity->target : nullptr;
      const Entity* const from = attribute.inverseEntity ? written : InverseTarget(attribute);
      attribute.inverse.target = Require(context, from, attribute.inverse.name);
    }
  }
}

}  // namespace express
