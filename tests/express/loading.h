// Schemas from texts, and what they resolve to as texts, so that a case is one row.
#ifndef STEPRT_TESTS_EXPRESS_LOADING_H
#define STEPRT_TESTS_EXPRESS_LOADING_H

#include <memory>
#include <string>
#include <vector>

#include "express/load.h"

namespace express_test {

struct Loaded {
  express::Diagnostics diagnostics;
  std::unique_ptr<express::Model> model;

  const express::Entity& EntityOf(std::string_view name) const;
  const express::DefinedType& TypeOf(std::string_view name) const;
  // "line:column message [code]", a line each; a note has no code. With several texts "file:" comes first: a, b, c ...
  std::string Messages() const;
};

Loaded LoadTexts(const std::vector<std::string>& texts, const express::Limits& limits = {});

// `body` in a schema. It starts on line 2.
std::string Schema(const std::string& body);
Loaded LoadBody(const std::string& body, const express::Limits& limits = {});

// A body and all that is reported of it.
struct Refusal {
  const char* body;
  const char* messages;
};
void ExpectRefusals(const std::vector<Refusal>& rows, const express::Limits& limits = {});

std::string TypeText(const express::Type& type);
std::string ConstraintText(const express::Constraint& constraint);
// "owner.name", "owner.name>last.name" where it is redeclared, "*" after it where it is derived; parted by blanks.
std::string Slots(const express::Entity& entity);
std::string Members(const express::DefinedType& select);
std::string Items(const express::DefinedType& enumeration);

// All that a model holds, a line for each declaration and attribute.
std::string Dump(const express::Model& model);

std::string FileText(const std::string& nameInTestFolder);

}  // namespace express_test

#endif
