// The types of instances: each entity, and each combination of parts that a file has.
#ifndef STEPRT_EXCHANGE_SCHEMA_INSTANCE_TYPES_H
#define STEPRT_EXCHANGE_SCHEMA_INSTANCE_TYPES_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "entities.h"
#include "exchange/codes.h"
#include "exchange/record.h"
#include "rules.h"

namespace exchange {

// One value of a record or of a part.
struct ValueSlot {
  const Rule* rule = nullptr;
  std::string name;
  bool optional = false;
  bool derived = false;  // it is written as *
};

struct InstanceType {
  struct Fault {
    Code code = Code::kCombination;
    std::string message;
  };
  struct Part {
    EntityNumber entity = 0;
    std::vector<ValueSlot> slots;
  };

  bool complex = false;
  std::vector<Part> parts;    // of a simple instance one; else by their numbers
  EntitySet entities;         // all parts with their supertypes: what an instance is
  std::vector<Fault> faults;  // why there can be no such instance
  std::string name;           // what a report calls it
  bool ready = false;         // slots and faults are there

  // Null if the entity is no part.
  const Part* Find(EntityNumber entity) const;
};

class InstanceTypes {
 public:
  explicit InstanceTypes(const Entities& entities);

  // The number of the type of a sound record. kUnknownType if a keyword is unknown, or if a file has more types than
  // there are numbers: what depends on the type is then not checked.
  std::uint16_t NumberOf(const Record& record);
  // With slots and faults. The number is one that NumberOf returned, other than kUnknownType.
  const InstanceType& At(std::uint16_t number);
  // What an instance of that number is.
  const EntitySet& EntitiesOf(std::uint16_t number) const { return types_[number]->entities; }
  const std::string& NameOf(std::uint16_t number) const { return types_[number]->name; }

 private:
  using Key = std::vector<EntityNumber>;

  std::uint16_t Add(const Key& key, bool complex);
  void Prepare(InstanceType& type);
  std::vector<ValueSlot> SimpleSlots(EntityNumber entity);
  void AddPartSlots(InstanceType& type);
  ValueSlot MakeSlot(const express::Slot& slot);

  const Entities& entities_;
  Rules rules_;
  std::vector<std::unique_ptr<InstanceType>> types_;  // by number; the first is none
  std::vector<std::uint16_t> simple_;                 // by entity
  std::map<Key, std::uint16_t> complex_;
  Key key_;  // of the record that is looked up
};

// Why an instance of these parts, each with all its supertypes, cannot be. Empty if it can.
std::vector<InstanceType::Fault> FindCombinationFaults(const Entities& entities, const InstanceType& type);

}  // namespace exchange

#endif
