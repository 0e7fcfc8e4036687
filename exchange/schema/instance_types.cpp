#include "instance_types.h"

#include <algorithm>
#include <unordered_map>

#include "exchange/names.h"

namespace exchange {

namespace {

// How often an attribute has been redeclared.
int Refinement(const express::Attribute* attribute) {
  int steps = 0;
  for (; attribute->redeclared != nullptr; attribute = attribute->redeclared) ++steps;
  return steps;
}

}  // namespace

const InstanceType::Part* InstanceType::Find(EntityNumber entity) const {
  const auto before = [](const Part& part, EntityNumber number) { return part.entity < number; };
  const auto found = std::lower_bound(parts.begin(), parts.end(), entity, before);
  return found != parts.end() && found->entity == entity ? &*found : nullptr;
}

InstanceTypes::InstanceTypes(const Entities& entities)
    : entities_(entities), rules_(entities), types_(1), simple_(entities.Count(), kUnknownType) {}

std::uint16_t InstanceTypes::NumberOf(const Record& record) {
  if (!record.complex) {
    const auto entity = entities_.Find(record.Keyword());
    if (!entity) return kUnknownType;
    std::uint16_t& number = simple_[*entity];
    if (number == kUnknownType) number = Add({*entity}, false);
    return number;
  }
  key_.clear();
  for (std::size_t i = 0; i < record.tokens.size(); i = AfterValue(record.tokens, i)) {
    const auto entity = entities_.Find(Spelling(record.bytes, record.tokens[i]));
    if (!entity) return kUnknownType;
    key_.push_back(*entity);
  }
  std::sort(key_.begin(), key_.end());
  key_.erase(std::unique(key_.begin(), key_.end()), key_.end());
  const auto found = complex_.find(key_);
  if (found != complex_.end()) return found->second;
  const std::uint16_t number = Add(key_, true);
  if (number != kUnknownType) complex_.emplace(key_, number);
  return number;
}

std::uint16_t InstanceTypes::Add(const Key& key, bool complex) {
  constexpr std::size_t kNamed = 4;  // parts that the name has
  if (types_.size() > kLastType) return kUnknownType;
  auto type = std::make_unique<InstanceType>();
  type->complex = complex;
  type->entities = EntitySet(entities_.Count());
  for (std::size_t i = 0; i < key.size(); ++i) {
    type->parts.push_back({key[i], {}});
    type->entities.Add(entities_.WithSupertypes(key[i]));
    if (i < kNamed) type->name += (i == 0 ? "" : " ") + entities_.NameOf(key[i]);
    if (i == kNamed) type->name += " ...";
  }
  if (complex) type->name = "(" + type->name + ")";
  types_.push_back(std::move(type));
  return static_cast<std::uint16_t>(types_.size() - 1);
}

const InstanceType& InstanceTypes::At(std::uint16_t number) {
  InstanceType& type = *types_[number];
  if (!type.ready) Prepare(type);
  return type;
}

void InstanceTypes::Prepare(InstanceType& type) {
  type.ready = true;
  type.faults = FindCombinationFaults(entities_, type);
  if (type.complex) {
    AddPartSlots(type);
  } else {
    type.parts.front().slots = SimpleSlots(type.parts.front().entity);
  }
}

ValueSlot InstanceTypes::MakeSlot(const express::Slot& slot) {
  return {rules_.Of(*slot.effective->type), std::string(slot.effective->name.text), slot.effective->optional,
          slot.derived};
}

std::vector<ValueSlot> InstanceTypes::SimpleSlots(EntityNumber entity) {
  std::vector<ValueSlot> slots;
  for (const express::Slot& slot : entities_.At(entity).slots) slots.push_back(MakeSlot(slot));
  return slots;
}

// A part has the attributes that its entity declares itself. Any other part may redeclare them: the last one counts.
void InstanceTypes::AddPartSlots(InstanceType& type) {
  std::unordered_map<const express::Attribute*, express::Slot> seen;  // by root
  for (const InstanceType::Part& part : type.parts) {
    for (const express::Slot& slot : entities_.At(part.entity).slots) {
      express::Slot& known = seen.emplace(slot.root, slot).first->second;
      known.derived = known.derived || slot.derived;
      if (Refinement(slot.effective) > Refinement(known.effective)) known.effective = slot.effective;
    }
  }
  for (InstanceType::Part& part : type.parts) {
    const express::Entity& entity = entities_.At(part.entity);
    for (const express::Slot& slot : entity.slots) {
      if (slot.root->owner == &entity) part.slots.push_back(MakeSlot(seen.at(slot.root)));
    }
  }
}

}  // namespace exchange
