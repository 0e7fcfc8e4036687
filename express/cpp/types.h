// The attribute types of C++ for the types of EXPRESS.
#ifndef STEPRT_EXPRESS_CPP_TYPES_H
#define STEPRT_EXPRESS_CPP_TYPES_H

#include <string>
#include <unordered_map>

#include "express/schema.h"

namespace express::cpp {

// The C++ names of entities, enumerations and selects.
using ClassNames = std::unordered_map<const Declaration*, std::string>;

class TypeTexts {
 public:
  explicit TypeTexts(const ClassNames& names) : names_(names) {}

  // The type as a member is declared: "steprt::List<steprt::Ref<IfcWall>>". A defined type that renames another type
  // is replaced by that type.
  std::string Of(const Type& type);

 private:
  // What a type is once defined types that rename another type are replaced.
  const Type& Underlying(const Type& type);

  const ClassNames& names_;
  std::unordered_map<const DefinedType*, const Type*> underlying_;  // of defined types, so that chains are walked once
};

}  // namespace express::cpp

#endif
