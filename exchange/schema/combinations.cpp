// Which entities may be parts of one instance: supertypes, ABSTRACT, SUPERTYPE OF and SUBTYPE_CONSTRAINT.
#include <algorithm>
#include <utility>

#include "instance_types.h"

namespace exchange {

namespace {

using express::Constraint;

class CombinationCheck {
 public:
  CombinationCheck(const Entities& entities, const InstanceType& type) : entities_(entities), type_(type) {}

  std::vector<InstanceType::Fault> Run() {
    for (EntityNumber number = 0; number < entities_.Count(); ++number) {
      if (type_.entities.Has(number)) present_.push_back(number);
    }
    if (type_.complex) CheckSupertypes();
    if (type_.complex) CheckConnection();
    for (const EntityNumber number : present_) CheckEntity(entities_.At(number));
    return std::move(faults_);
  }

 private:
  bool Has(const express::Entity* entity) const { return type_.entities.Has(entities_.NumberOf(*entity)); }
  static std::string NameOf(const express::Entity& entity) { return Capitals(entity.name.text); }
  void Add(Code code, std::string message) { faults_.push_back({code, std::move(message)}); }

  // Each supertype of a part is a part of its own.
  void CheckSupertypes() {
    for (const EntityNumber number : present_) {
      if (type_.Find(number) == nullptr) {
        Add(Code::kMissingPartOf, "expected the part " + entities_.NameOf(number) + ", a supertype of another part");
      }
    }
  }

  // All parts hang together through supertypes.
  void CheckConnection() {
    EntitySet reached(entities_.Count());
    std::vector<const express::Entity*> open;
    const auto reach = [&](const express::Entity* entity) {
      if (!Has(entity) || reached.Has(entities_.NumberOf(*entity))) return;
      reached.Add(entities_.NumberOf(*entity));
      open.push_back(entity);
    };
    reach(&entities_.At(type_.parts.front().entity));
    while (!open.empty()) {
      const express::Entity* const entity = open.back();
      open.pop_back();
      for (const auto& supertype : entity->supertypes) reach(supertype.target);
      for (const express::Entity* subtype : entity->subtypes) reach(subtype);
    }
    for (const InstanceType::Part& part : type_.parts) {
      if (reached.Has(part.entity)) continue;
      return Add(Code::kCombination, "expected parts with a common supertype, " + entities_.NameOf(part.entity) +
                                         " has none with " + entities_.NameOf(type_.parts.front().entity));
    }
  }

  void CheckEntity(const express::Entity& entity) {
    const auto present = [this](const express::Entity* subtype) { return Has(subtype); };
    if (entity.abstract && std::none_of(entity.subtypes.begin(), entity.subtypes.end(), present)) {
      Add(Code::kAbstractEntity, "expected a subtype of " + NameOf(entity) + ", which is abstract");
    }
    if (entity.constraint) CheckConstraint(entity, *entity.constraint);
    for (const express::SubtypeConstraint* constraint : entity.constraints) {
      if (constraint->constraint) CheckConstraint(entity, *constraint->constraint);
      CheckTotal(entity, *constraint);
    }
  }

  void CheckTotal(const express::Entity& entity, const express::SubtypeConstraint& constraint) {
    const auto present = [this](const express::Reference<express::Entity>& subtype) { return Has(subtype.target); };
    const auto& total = constraint.totalOver;
    if (total.empty() || std::any_of(total.begin(), total.end(), present)) return;
    Add(Code::kCombination, "expected a subtype that TOTAL_OVER of " + NameOf(entity) + " names");
  }

  bool IsPresent(const Constraint& constraint) const {
    if (constraint.kind == Constraint::Kind::kEntity) return Has(constraint.entity.target);
    return std::any_of(constraint.operands.begin(), constraint.operands.end(),
                       [this](const Constraint& operand) { return IsPresent(operand); });
  }

  void CheckConstraint(const express::Entity& entity, const Constraint& constraint) {
    std::vector<const Constraint*> present;
    for (const Constraint& operand : constraint.operands) {
      if (IsPresent(operand)) present.push_back(&operand);
    }
    if (constraint.kind == Constraint::Kind::kOneOf && present.size() > 1 && !IsForced(*present[0], *present[1])) {
      Add(Code::kCombination, "expected one subtype of " + NameOf(entity) + ", ONEOF forbids " + Names(*present[0]) +
                                  " with " + Names(*present[1]));
    }
    if (constraint.kind == Constraint::Kind::kAnd && !present.empty() && present.size() < constraint.operands.size()) {
      Add(Code::kCombination,
          "expected another subtype of " + NameOf(entity) + ", AND wants one with " + Names(*present[0]));
    }
    for (const Constraint* operand : present) CheckConstraint(entity, *operand);
  }

  // The first entity of an operand that is there.
  const express::Entity* First(const Constraint& constraint) const {
    if (constraint.kind == Constraint::Kind::kEntity) return constraint.entity.target;
    for (const Constraint& operand : constraint.operands) {
      if (IsPresent(operand)) return First(operand);
    }
    return nullptr;
  }
  std::string Names(const Constraint& constraint) const { return NameOf(*First(constraint)); }

  // True if one entity is a subtype of both: the schema contradicts itself, and the file is not to blame.
  bool IsForced(const Constraint& a, const Constraint& b) const {
    const EntityNumber ofA = entities_.NumberOf(*First(a));
    const EntityNumber ofB = entities_.NumberOf(*First(b));
    return std::any_of(present_.begin(), present_.end(), [&](EntityNumber number) {
      const EntitySet& closure = entities_.WithSupertypes(number);
      return closure.Has(ofA) && closure.Has(ofB);
    });
  }

  const Entities& entities_;
  const InstanceType& type_;
  std::vector<EntityNumber> present_;
  std::vector<InstanceType::Fault> faults_;
};

}  // namespace

std::vector<InstanceType::Fault> FindCombinationFaults(const Entities& entities, const InstanceType& type) {
  return CombinationCheck(entities, type).Run();
}

}  // namespace exchange
