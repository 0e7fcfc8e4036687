// The enumerations of the entities. A position in one of them is the value of an attribute; 0 is omitted.
#ifndef PLAN_ENUMERATIONS_H
#define PLAN_ENUMERATIONS_H

#include "values.h"

namespace plan {

extern const Enumerators kBooleanOperators;
extern const Enumerators kChangeActions;
extern const Enumerators kCompositionTypes;
extern const Enumerators kDoorConstructions;
extern const Enumerators kDoorOperations;
extern const Enumerators kInternalOrExternal;
extern const Enumerators kProfileTypes;
extern const Enumerators kProjections;
extern const Enumerators kSiPrefixes;
extern const Enumerators kSiUnitNames;
extern const Enumerators kSlabTypes;
extern const Enumerators kStairTypes;
extern const Enumerators kStates;
extern const Enumerators kUnitTypes;
extern const Enumerators kWindowConstructions;
extern const Enumerators kWindowOperations;

// The positions that the program itself asks for or sets.
enum CompositionType { kElementComposition = 2 };
enum ProfileType { kAreaProfile = 2 };
enum SlabType { kRoofSlab = 2 };
enum UnitType { kLengthUnit = 16 };
enum BooleanOperator { kDifference = 3 };
enum DoorOperation {
  kSingleSwingLeft = 1,
  kSingleSwingRight,
  kDoubleDoorSingleSwing,
  kDoubleDoorOppositeLeft,
  kDoubleDoorOppositeRight,
  kDoubleSwingLeft,
  kDoubleSwingRight,
  kDoubleDoorDoubleSwing,
  kSlidingToLeft,
  kSlidingToRight,
  kDoubleDoorSliding
};

// The power of ten of a prefix, 0 for an omitted one.
int PowerOfPrefix(int prefix);

}  // namespace plan

#endif
