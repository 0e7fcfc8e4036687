// What is generated: the classes of a schema with their names, numbers and members, before a line of C++ is printed.
//
//   express::Model --SelectDeclarations--> Selection --BuildProgram--> Program --Print--> files
//
// All pointers lead into the express::Model, which must outlive the Program.
#ifndef STEPRT_EXPRESS_CPP_PROGRAM_H
#define STEPRT_EXPRESS_CPP_PROGRAM_H

#include <memory>
#include <string>
#include <vector>

#include "express/cpp/selection.h"
#include "express/schema.h"

namespace express::cpp {

struct Enumeration {
  const DefinedType* type = nullptr;
  std::string name;
  std::vector<std::string> enumerators;  // in the order of allItems
};

struct Class;

struct Select {
  const DefinedType* type = nullptr;
  std::string name;
  // What it allows: typed values with these keywords, enumerators, and entities.
  std::vector<std::string> keywords;
  bool takesEnumerators = false;
  std::vector<const Class*> classes;
};

// An attribute of a class.
struct Member {
  const Attribute* attribute = nullptr;  // the first of its redeclarations
  std::string name;
  std::string
      element;       // in XML: its name in the schema, with an underscore if a supertype has an attribute of that name
  std::string type;  // in C++
};

struct Class {
  const Entity* entity = nullptr;
  std::string name;
  std::string keyword;          // in files
  const Class* base = nullptr;  // of the first supertype; null for a root
  std::vector<Class*> derived;  // the classes that have this one as their base
  int type = 0;                 // type numbers run depth first, so that the subtypes are type + 1 ... last
  int last = 0;
  std::vector<std::unique_ptr<Member>> members;  // those of further supertypes, then those that the entity declares
  std::vector<const Member*> slots;              // of each of the entity's slots
  std::vector<const Member*> derives;            // what the entity derives and its base does not
  // Classes whose entities are subtypes, which their bases do not tell: they come by a further supertype.
  std::vector<const Class*> furtherSubtypes;
};

struct Program {
  std::string nameSpace;
  std::string schemaName;
  std::vector<Enumeration> enumerations;
  std::vector<Select> selects;
  std::vector<std::unique_ptr<Class>> classes;  // by type number

  bool HasFurtherSubtypes() const;
};

// `firstType` is the type number of the first class. After an error the program is not complete.
Program BuildProgram(const Selection& selection, const std::string& nameSpace, int firstType, Diagnostics& diagnostics);

}  // namespace express::cpp

#endif
