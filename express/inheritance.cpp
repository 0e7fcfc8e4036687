#include <unordered_set>

#include "post_order.h"
#include "resolver.h"

namespace express {

namespace {

std::vector<Entity*> AllEntities(const Model& model) {
  std::vector<Entity*> all;
  for (const auto& schema : model.schemas) all.insert(all.end(), schema->entities.begin(), schema->entities.end());
  return all;
}

std::vector<Entity*> CutRings(Context& context) {
  const auto supertypes = [](const Entity* entity) {
    std::vector<Entity*> targets;
    for (const Reference<Entity>& supertype : entity->supertypes) targets.push_back(supertype.target);
    return targets;
  };
  return PostOrder(AllEntities(context.model), supertypes, [&](Entity* entity, std::size_t i) {
    Reference<Entity>& supertype = entity->supertypes[i];
    context.Error(supertype.name, Code::kSupertypeRing,
                  "expected a supertype of " + Quoted(entity->name) + ", " + Quoted(supertype.name) +
                      " is a subtype of it or the entity itself");
    supertype.target = nullptr;
  });
}

void LinkSubtypes(Context& context, Entity& entity) {
  std::unordered_set<const Entity*> seen;
  for (Reference<Entity>& supertype : entity.supertypes) {
    if (supertype.target == nullptr) continue;
    if (seen.insert(supertype.target).second) {
      supertype.target->subtypes.push_back(&entity);
      continue;
    }
    context.Error(supertype.name, Code::kDuplicateName,
                  "expected another supertype, " + Quoted(supertype.name) + " is in this list already");
    supertype.target = nullptr;
  }
}

// The names in an expression must be those of subtypes, direct ones or not.
class ConstraintCheck {
 public:
  ConstraintCheck(Context& context, const Entity& entity) : context_(context), entity_(entity) {
    for (const Entity* subtype : entity.subtypes) direct_.insert(subtype);
  }

  void Check(const Constraint& constraint) {
    if (constraint.kind == Constraint::Kind::kEntity) Check(constraint.entity);
    for (const Constraint& operand : constraint.operands) Check(operand);
  }

  void Check(const Reference<Entity>& subtype) {
    if (subtype.target == nullptr || direct_.count(subtype.target) != 0 || IsBelow(*subtype.target)) return;
    context_.Error(subtype.name, Code::kNotSubtype,
                   "expected a subtype of " + Quoted(entity_.name) + ", " + Quoted(subtype.name) + " is none");
    context_.diagnostics.Note(subtype.target->name.place, "it is declared here");
  }

 private:
  // Without budget the answer is that it is one.
  bool IsBelow(const Entity& entity) {
    std::vector<const Entity*> visits{&entity};
    std::unordered_set<const Entity*> seen{&entity};
    for (std::size_t i = 0; i < visits.size(); ++i) {
      if (!context_.budget.Take(1 + visits[i]->supertypes.size(), entity.name.place)) return true;
      for (const Reference<Entity>& supertype : visits[i]->supertypes) {
        if (supertype.target == &entity_) return true;
        if (supertype.target != nullptr && seen.insert(supertype.target).second) visits.push_back(supertype.target);
      }
    }
    return false;
  }

  Context& context_;
  const Entity& entity_;
  std::unordered_set<const Entity*> direct_;
};

void LinkConstraints(Context& context) {
  for (const auto& schema : context.model.schemas) {
    for (const auto& declaration : schema->declarations) {
      if (declaration->kind != Declaration::Kind::kSubtypeConstraint) continue;
      auto* constraint = static_cast<SubtypeConstraint*>(declaration.get());
      Entity* const entity = constraint->entity.target;
      if (entity == nullptr) continue;
      entity->constraints.push_back(constraint);
      entity->abstract = entity->abstract || constraint->abstract;
    }
  }
}

void CheckConstraints(Context& context, const Entity& entity) {
  if (!entity.constraint && entity.constraints.empty()) return;
  ConstraintCheck check(context, entity);
  if (entity.constraint) check.Check(*entity.constraint);
  for (const SubtypeConstraint* constraint : entity.constraints) {
    for (const Reference<Entity>& subtype : constraint->totalOver) check.Check(subtype);
    if (constraint->constraint) check.Check(*constraint->constraint);
  }
}

}  // namespace

std::vector<Entity*> ResolveInheritance(Context& context) {
  std::vector<Entity*> supertypesFirst = CutRings(context);
  const std::vector<Entity*> all = AllEntities(context.model);
  for (Entity* entity : all) LinkSubtypes(context, *entity);
  LinkConstraints(context);
  for (const Entity* entity : all) CheckConstraints(context, *entity);
  return supertypesFirst;
}

}  // namespace express
