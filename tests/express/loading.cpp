#include "loading.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace express_test {

using namespace express;

namespace {

template <class Range, class Text>
std::string Joined(const Range& range, const std::string& separator, Text text) {
  std::string all;
  bool first = true;
  for (const auto& item : range) {
    if (!first) all += separator;
    all += text(item);
    first = false;
  }
  return all;
}

template <class T>
std::string Names(const std::vector<T*>& declarations) {
  return Joined(declarations, " ", [](const T* d) { return std::string(d->name.text); });
}

std::string Print(const Bound& bound) {
  const std::string value = bound.open ? "open" : bound.value ? std::to_string(*bound.value) : "?";
  return std::string(bound.text.text) + "=" + value;
}

const Declaration& Find(const Model& model, std::string_view name) {
  for (const auto& schema : model.schemas) {
    if (const Declaration* found = schema->Find(name)) return *found;
  }
  throw std::out_of_range(std::string(name));
}

std::string Head(const Type& type) {
  constexpr const char* kWords[] = {"NUMBER",  "REAL",           "INTEGER", "STRING", "BINARY", "BOOLEAN",
                                    "LOGICAL", "ARRAY",          "BAG",     "LIST",   "SET",    "AGGREGATE",
                                    "GENERIC", "GENERIC_ENTITY", ""};
  std::string text = kWords[static_cast<int>(type.kind)];
  if (type.named.target != nullptr) text += type.named.target->name.text;
  if (type.label) text += ":" + std::string(type.label->text);
  if (type.width) text += "(" + Print(*type.width) + ")";
  if (type.fixed) text += " FIXED";
  if (type.lower) text += " [" + Print(*type.lower) + " : " + Print(*type.upper) + "]";
  return text;
}

std::string Print(const Attribute& attribute) {
  std::string text = "  " + std::string(attribute.name.text) + " : ";
  if (attribute.optional) text += "OPTIONAL ";
  text += TypeText(*attribute.type);
  if (attribute.redeclared != nullptr) {
    text += " redeclares " + std::string(attribute.redeclared->owner->name.text) + "." +
            std::string(attribute.redeclared->name.text);
  }
  if (attribute.kind == Attribute::Kind::kDerived) text += " := " + std::string(attribute.value.text);
  if (attribute.inverse.target != nullptr) {
    text += " FOR " + std::string(attribute.inverse.target->owner->name.text) + "." +
            std::string(attribute.inverse.target->name.text);
  }
  return text + "\n";
}

std::string Print(const std::vector<WhereRule>& rules) {
  return Joined(rules, "", [](const WhereRule& rule) {
    const std::string label = rule.label ? std::string(rule.label->text) : "-";
    return "  where " + label + " | " + std::string(rule.expression.text) + "\n";
  });
}

std::string Print(const DefinedType& type) {
  std::string text = "type " + std::string(type.name.text) + (type.extensible ? " extensible" : "") +
                     (type.genericEntity ? " of entities" : "");
  if (type.base) text += " based on " + std::string(type.base->target->name.text);
  if (type.form == DefinedType::Form::kUnderlying) text += " = " + TypeText(*type.underlying);
  if (type.form == DefinedType::Form::kEnumeration) text += " = (" + Items(type) + ")";
  if (type.form == DefinedType::Form::kSelect) text += " = {" + Members(type) + "}";
  return text + "\n" + Print(type.where);
}

std::string Print(const Entity& entity) {
  std::string text = "entity " + std::string(entity.name.text) + (entity.abstract ? " abstract\n" : "\n");
  if (!entity.supertypes.empty()) {
    text +=
        "  above " + Joined(entity.supertypes, " ", [](auto& s) { return std::string(s.target->name.text); }) + "\n";
  }
  if (!entity.subtypes.empty()) text += "  below " + Names(entity.subtypes) + "\n";
  if (entity.constraint) text += "  constraint " + ConstraintText(*entity.constraint) + "\n";
  if (!entity.constraints.empty()) text += "  constraints " + Names(entity.constraints) + "\n";
  text += Joined(entity.attributes, "", [](const Attribute& attribute) { return Print(attribute); });
  for (const UniqueRule& rule : entity.unique) {
    text += "  unique " + (rule.label ? std::string(rule.label->text) : "-") + " | " +
            Joined(rule.attributes, " + ", [](const Text& t) { return std::string(t.text); }) + "\n";
  }
  return text + Print(entity.where) + "  slots " + Slots(entity) + "\n";
}

std::string Print(const SubtypeConstraint& constraint) {
  std::string text = "subtype constraint " + std::string(constraint.name.text) + " of " +
                     std::string(constraint.entity.target->name.text) + (constraint.abstract ? " abstract" : "");
  text += ", total over " + Joined(constraint.totalOver, " ", [](auto& s) { return std::string(s.target->name.text); });
  if (constraint.constraint) text += ", " + ConstraintText(*constraint.constraint);
  return text + "\n";
}

std::string Print(const Algorithm& algorithm) {
  std::string text = "algorithm " + std::string(algorithm.name.text);
  for (const Parameter& parameter : algorithm.parameters) {
    text += std::string(" (") + (parameter.variable ? "VAR " : "") + std::string(parameter.name.text) + " : " +
            TypeText(*parameter.type) + ")";
  }
  if (algorithm.result) text += " returns " + TypeText(*algorithm.result);
  // Long bodies are checked by their ends.
  const std::string_view body = algorithm.body.text;
  return text + " | " + std::string(body.substr(0, 12)) + " ... " + std::string(body.substr(body.size() - 12)) + "\n";
}

std::string Print(const Declaration& declaration) {
  switch (declaration.kind) {
    case Declaration::Kind::kConstant: {
      const auto& constant = static_cast<const Constant&>(declaration);
      return "constant " + std::string(constant.name.text) + " : " + TypeText(*constant.type) +
             " := " + std::string(constant.value.text) + "\n";
    }
    case Declaration::Kind::kType:
      return Print(static_cast<const DefinedType&>(declaration));
    case Declaration::Kind::kEntity:
      return Print(static_cast<const Entity&>(declaration));
    case Declaration::Kind::kFunction:
    case Declaration::Kind::kProcedure:
      return Print(static_cast<const Algorithm&>(declaration));
    case Declaration::Kind::kRule: {
      const auto& rule = static_cast<const Rule&>(declaration);
      return "rule " + std::string(rule.name.text) + " for " +
             Joined(rule.entities, " ", [](auto& e) { return std::string(e.target->name.text); }) + " | " +
             std::string(rule.body.text) + "\n";
    }
    case Declaration::Kind::kSubtypeConstraint:
      return Print(static_cast<const SubtypeConstraint&>(declaration));
  }
  return "";
}

}  // namespace

const Entity& Loaded::EntityOf(std::string_view name) const { return dynamic_cast<const Entity&>(Find(*model, name)); }

const DefinedType& Loaded::TypeOf(std::string_view name) const {
  return dynamic_cast<const DefinedType&>(Find(*model, name));
}

std::string Loaded::Messages() const {
  std::ostringstream text;
  for (const Diagnostic& diagnostic : diagnostics.All()) {
    const Position position = diagnostic.place.source->PositionAt(diagnostic.place.offset);
    if (model->sources.size() > 1) text << diagnostic.place.source->Name() << ":";
    text << position.line << ":" << position.column << " " << diagnostic.message;
    if (diagnostic.severity != Severity::kNote) text << " [" << CodeName(diagnostic.code) << "]";
    text << "\n";
  }
  return text.str();
}

Loaded LoadTexts(const std::vector<std::string>& texts, const Limits& limits) {
  Loaded loaded{Diagnostics(limits.errors), nullptr};
  std::vector<std::unique_ptr<Source>> sources;
  for (const std::string& text : texts) {
    sources.push_back(std::make_unique<Source>(std::string(1, static_cast<char>('a' + sources.size())), text));
  }
  loaded.model = Load(std::move(sources), loaded.diagnostics, limits);
  return loaded;
}

std::string Schema(const std::string& body) { return "SCHEMA s;\n" + body + "\nEND_SCHEMA;\n"; }

Loaded LoadBody(const std::string& body, const Limits& limits) { return LoadTexts({Schema(body)}, limits); }

void ExpectRefusals(const std::vector<Refusal>& rows, const Limits& limits) {
  for (const Refusal& row : rows) EXPECT_EQ(LoadBody(row.body, limits).Messages(), row.messages) << row.body;
}

std::string TypeText(const Type& type) {
  std::string text = Head(type);
  if (type.element == nullptr) return text;
  text += std::string(" OF ") + (type.optional ? "OPTIONAL " : "") + (type.unique ? "UNIQUE " : "");
  return text + TypeText(*type.element);
}

std::string ConstraintText(const Constraint& constraint) {
  if (constraint.kind == Constraint::Kind::kEntity) return std::string(constraint.entity.target->name.text);
  const auto print = [](const Constraint& operand) { return ConstraintText(operand); };
  if (constraint.kind == Constraint::Kind::kOneOf) return "ONEOF(" + Joined(constraint.operands, ", ", print) + ")";
  const std::string word = constraint.kind == Constraint::Kind::kAnd ? " AND " : " ANDOR ";
  return "(" + Joined(constraint.operands, word, print) + ")";
}

std::string Slots(const Entity& entity) {
  const auto qualified = [](const Attribute* attribute) {
    return std::string(attribute->owner->name.text) + "." + std::string(attribute->name.text);
  };
  return Joined(entity.slots, " ", [&](const Slot& slot) {
    const std::string last = slot.effective == slot.root ? "" : ">" + qualified(slot.effective);
    return qualified(slot.root) + last + (slot.derived ? "*" : "");
  });
}

std::string Members(const DefinedType& select) { return Names(select.allMembers); }

std::string Items(const DefinedType& enumeration) {
  return Joined(enumeration.allItems, " ", [](const Name& item) { return std::string(item.text); });
}

std::string Dump(const Model& model) {
  std::string text;
  for (const auto& schema : model.schemas) {
    text += "schema " + std::string(schema->name.text);
    if (schema->version) text += " " + std::string(schema->version->text);
    text += "\n";
    for (const auto& declaration : schema->declarations) text += Print(*declaration);
  }
  return text;
}

std::string FileText(const std::string& nameInTestFolder) {
  std::ifstream in(std::string(STEPRT_TEST_FOLDER) + "/" + nameInTestFolder, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + nameInTestFolder);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace express_test
