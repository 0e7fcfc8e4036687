// Target: the front end for EXPRESS. The bytes are schemas; a file separator (0x1C) starts another file. Whatever they
// hold, reading ends within limits, each diagnostic can be printed, a model without an error is complete, and C++ comes
// of it.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "express/cpp/generate.h"
#include "express/load.h"

namespace {

using namespace express;

constexpr std::size_t kSteps = 100'000;  // few, so that the limit is reached

// A breach prints its line and ends the program, in every kind of build.
void Check(bool holds, int line = __builtin_LINE()) {
  if (holds) return;
  std::fprintf(stderr, "%s:%d: does not hold\n", __FILE__, line);
  std::abort();
}

std::vector<std::unique_ptr<Source>> Split(std::string_view bytes) {
  std::vector<std::unique_ptr<Source>> sources;
  for (;;) {
    const std::size_t end = bytes.find('\x1C');
    sources.push_back(std::make_unique<Source>("file", std::string(bytes.substr(0, end))));
    if (end == std::string_view::npos) return sources;
    bytes.remove_prefix(end + 1);
  }
}

void CheckType(const Type* type) {
  Check(type != nullptr);
  for (; type->IsAggregate(); type = type->element.get()) {
    Check(type->element != nullptr);
    Check(type->lower.has_value() == type->upper.has_value());
  }
  Check(type->element == nullptr);
  Check((type->kind == Type::Kind::kNamed) == (type->named.target != nullptr));
}

void CheckConstraint(const Constraint& constraint) {
  const bool leaf = constraint.kind == Constraint::Kind::kEntity;
  Check(leaf == (constraint.entity.target != nullptr));
  Check(leaf == constraint.operands.empty());
  for (const Constraint& operand : constraint.operands) CheckConstraint(operand);
}

void CheckEntity(const Entity& entity) {
  for (const auto& supertype : entity.supertypes) {
    Check(supertype.target != nullptr && entity.slots.size() >= supertype.target->slots.size());
  }
  for (const Slot& slot : entity.slots) {
    Check(slot.root->redeclared == nullptr && slot.effective->root == slot.root);
  }
  for (const Attribute& attribute : entity.attributes) {
    CheckType(attribute.type.get());
    Check(attribute.owner == &entity && attribute.root != nullptr);
    Check(attribute.redeclaration.has_value() == (attribute.redeclared != nullptr));
    Check((attribute.kind == Attribute::Kind::kInverse) == (attribute.inverse.target != nullptr));
  }
  if (entity.constraint) CheckConstraint(*entity.constraint);
}

void CheckDefined(const DefinedType& type) {
  if (type.form == DefinedType::Form::kUnderlying) CheckType(type.underlying.get());
  Check(type.allItems.size() >= type.items.size());
  for (const Declaration* member : type.allMembers) {
    Check(AsEntity(member) != nullptr || AsType(member)->form != DefinedType::Form::kSelect);
  }
}

// The files of a schema with entities; no entity twice, whatever the supertypes are.
void CheckGenerated(const Model& model, Diagnostics& diagnostics) {
  const auto files = cpp::Generate(model, {}, diagnostics);
  Check(files.empty() == (diagnostics.Errors() > 0));
  if (files.empty()) return;
  const std::string& header = files.front().text;
  std::set<std::string, std::less<>> classes;
  for (std::size_t at = 0; (at = header.find("\nstruct ", at)) != std::string::npos; ++at) {
    const std::size_t colon = header.find_first_of(";:", at);
    if (header[colon] == ':') Check(classes.insert(header.substr(at, colon - at)).second);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Diagnostics diagnostics;
  Limits limits;
  limits.steps = kSteps;
  const auto model = Load(Split({reinterpret_cast<const char*>(data), size}), diagnostics, limits);
  for (const Diagnostic& diagnostic : diagnostics.All()) Check(Format(diagnostic).ends_with("\n"));
  if (diagnostics.Errors() > 0) return 0;
  Check(!model->schemas.empty());
  for (const auto& schema : model->schemas) {
    for (const Entity* entity : schema->entities) CheckEntity(*entity);
    for (const DefinedType* type : schema->types) CheckDefined(*type);
  }
  CheckGenerated(*model, diagnostics);
  return 0;
}
