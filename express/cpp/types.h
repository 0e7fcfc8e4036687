// The attribute types of C++ for the types of EXPRESS.
#ifndef STEPRT_EXPRESS_CPP_TYPES_H
#define STEPRT_EXPRESS_CPP_TYPES_H

#include <string>
#include <unordered_map>

#include "express/schema.h"

namespace express::cpp {

// The C++ names of entities, enumerations and selects.
using ClassNames = std::unordered_map<const Declaration*, std::string>;

// The type as a member is declared: "steprt::List<steprt::Ref<IfcWall>>". A defined type that renames another type is
// replaced by that type.
std::string TypeText(const Type& type, const ClassNames& names);

}  // namespace express::cpp

#endif
