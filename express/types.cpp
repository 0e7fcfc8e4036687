#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "post_order.h"
#include "resolver.h"

namespace express {

namespace {

std::vector<DefinedType*> AllTypes(const Model& model) {
  std::vector<DefinedType*> all;
  for (const auto& schema : model.schemas) all.insert(all.end(), schema->types.begin(), schema->types.end());
  return all;
}

// The named type that a type consists of, through aggregates; null if it is no named one.
Reference<Declaration>* InnermostName(const DefinedType& type) {
  Type* innermost = type.underlying.get();
  while (innermost != nullptr && innermost->element != nullptr) innermost = innermost->element.get();
  return innermost != nullptr && innermost->kind == Type::Kind::kNamed ? &innermost->named : nullptr;
}

// Rings of TYPE a = b, of TYPE a = LIST OF b, and of BASED_ON. A ring through a select is none: a value can end it.
void CutTypeRings(Context& context) {
  const auto next = [](const DefinedType* type) {
    const Reference<Declaration>* name = InnermostName(*type);
    return std::vector<DefinedType*>{name ? AsType(name->target) : nullptr, type->base ? type->base->target : nullptr};
  };
  PostOrder(AllTypes(context.model), next, [&](DefinedType* type, std::size_t i) {
    const Name& name = i == 0 ? InnermostName(*type)->name : type->base->name;
    context.Error(name, Code::kTypeRing,
                  "expected a type that does not consist of " + Quoted(type->name) + ", " + Quoted(name) + " does");
    if (i == 0) InnermostName(*type)->target = nullptr;
    if (i == 1) type->base->target = nullptr;
  });
}

// BASED_ON needs an extensible type of the same form.
void LinkExtensions(Context& context) {
  for (DefinedType* type : AllTypes(context.model)) {
    if (!type->base || type->base->target == nullptr) continue;
    DefinedType& base = *type->base->target;
    if (base.extensible && base.form == type->form) {
      base.extensions.push_back(type);
      continue;
    }
    const bool select = type->form == DefinedType::Form::kSelect;
    context.Error(type->base->name, Code::kNotExtensible,
                  std::string("expected an extensible ") + (select ? "select, " : "enumeration, ") +
                      Quoted(type->base->name) + " is none");
    context.diagnostics.Note(base.name.place, "it is declared here");
    type->base->target = nullptr;
  }
}

// The types whose lists make up that of `type`: what it is based on, itself, and what is based on it.
std::vector<DefinedType*> Family(Context& context, DefinedType& type) {
  std::vector<DefinedType*> family;
  for (DefinedType* base = &type; base != nullptr; base = base->base ? base->base->target : nullptr) {
    if (!context.budget.Take(1, type.name.place)) return {};
    family.push_back(base);
  }
  std::reverse(family.begin(), family.end());
  for (std::size_t i = family.size() - 1; i < family.size(); ++i) {
    if (!context.budget.Take(1 + family[i]->extensions.size(), type.name.place)) return {};
    family.insert(family.end(), family[i]->extensions.begin(), family[i]->extensions.end());
  }
  return family;
}

// In one declaration an item must not come twice. Of two extensions it may.
void FillItems(Context& context, DefinedType& type) {
  std::unordered_set<std::string> own;
  for (const Name& item : type.items) {
    if (own.insert(Fold(item.text)).second) continue;
    context.Error(item, Code::kDuplicateName, "expected another name, " + Quoted(item) + " is an item already");
  }
  std::unordered_set<std::string> seen;
  for (const DefinedType* part : Family(context, type)) {
    if (!context.budget.Take(part->items.size(), type.name.place)) return;
    for (const Name& item : part->items) {
      if (seen.insert(Fold(item.text)).second) type.allItems.push_back(item);
    }
  }
}

using Member = Reference<Declaration>;

std::vector<Member*> FamilyMembers(Context& context, DefinedType& select) {
  std::vector<Member*> members;
  for (DefinedType* part : Family(context, select)) {
    if (!context.budget.Take(part->members.size(), select.name.place)) return {};
    for (Member& member : part->members) members.push_back(&member);
  }
  return members;
}

// The select that a member is, at once or through TYPE a = b; null if it is none.
DefinedType* SelectOf(Context& context, const Member& member) {
  DefinedType* type = AsType(member.target);
  while (type != nullptr && type->form == DefinedType::Form::kUnderlying) {
    if (type->underlying == nullptr || type->underlying->kind != Type::Kind::kNamed) return nullptr;
    if (!context.budget.Take(1, member.name.place)) return nullptr;
    type = AsType(type->underlying->named.target);
  }
  return type != nullptr && type->form == DefinedType::Form::kSelect ? type : nullptr;
}

// Replaces selects among members by their members.
class Flattening {
 public:
  explicit Flattening(Context& context) : context_(context) {
    for (DefinedType* type : AllTypes(context.model)) {
      if (type->form == DefinedType::Form::kSelect) members_[type] = FamilyMembers(context, *type);
    }
  }

  // All selects, each after those among its members.
  std::vector<DefinedType*> CutRings() {
    std::vector<DefinedType*> selects;
    for (DefinedType* type : AllTypes(context_.model)) {
      if (type->form == DefinedType::Form::kSelect) selects.push_back(type);
    }
    const auto nested = [&](DefinedType* select) {
      std::vector<DefinedType*> types;
      for (const Member* member : members_[select]) types.push_back(SelectOf(context_, *member));
      return types;
    };
    return PostOrder(selects, nested, [&](DefinedType* select, std::size_t i) {
      Member& member = *members_[select][i];
      context_.Error(
          member.name, Code::kSelectRing,
          "expected a member that is not made of " + Quoted(select->name) + ", " + Quoted(member.name) + " is");
      member.target = nullptr;
    });
  }

  // False if the budget is spent; the select then has no flattened members.
  bool Fill(DefinedType& select) {
    std::vector<Declaration*> all;
    std::unordered_set<const Declaration*> seen;
    for (const Member* member : members_[&select]) {
      if (member->target == nullptr) continue;
      const DefinedType* const nested = SelectOf(context_, *member);
      const std::size_t count = nested == nullptr ? 1 : 1 + nested->allMembers.size();
      if (!context_.budget.Take(count, member->name.place)) return false;
      const std::vector<Declaration*> leaves = nested ? nested->allMembers : std::vector{member->target};
      for (Declaration* leaf : leaves) {
        if (seen.insert(leaf).second) all.push_back(leaf);
      }
    }
    select.allMembers = std::move(all);
    return true;
  }

 private:
  Context& context_;
  std::unordered_map<DefinedType*, std::vector<Member*>> members_;
};

}  // namespace

void ResolveTypes(Context& context) {
  CutTypeRings(context);
  LinkExtensions(context);
  for (DefinedType* type : AllTypes(context.model)) {
    if (type->form == DefinedType::Form::kEnumeration) FillItems(context, *type);
  }
  Flattening flattening(context);
  for (DefinedType* select : flattening.CutRings()) {
    if (context.diagnostics.Full() || !flattening.Fill(*select)) return;
  }
}

}  // namespace express
