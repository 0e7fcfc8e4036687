#include "late_schema.h"

#include <steprt/standard.h>

#include "express/cpp/names.h"

namespace steprt_tools {
namespace {

const LateSchema* bound = nullptr;

}  // namespace

// Enumerators, booleans, integers, selects and nested lists are Values: these are read and written alike.
std::unique_ptr<LateRecord::Attribute> LateRecord::Make(std::string_view type) {
  if (type == "steprt::Text") return std::make_unique<Attribute>(std::in_place_type<steprt::Text>);
  if (type == "steprt::Real") return std::make_unique<Attribute>(std::in_place_type<steprt::Real>);
  if (type == "steprt::List<steprt::Text>") {
    return std::make_unique<Attribute>(std::in_place_type<steprt::List<steprt::Text>>);
  }
  if (type == "steprt::List<steprt::Integer>") {
    return std::make_unique<Attribute>(std::in_place_type<steprt::List<steprt::Integer>>);
  }
  if (type == "steprt::List<steprt::Real>") {
    return std::make_unique<Attribute>(std::in_place_type<steprt::List<steprt::Real>>);
  }
  if (type.starts_with("steprt::List<steprt::Ref<")) {
    return std::make_unique<Attribute>(std::in_place_type<steprt::List<steprt::Ref<steprt::Record>>>);
  }
  return std::make_unique<Attribute>(std::in_place_type<steprt::Value>);
}

LateRecord::LateRecord(const express::cpp::Class& entity, std::uint64_t name, bool isPart) : name_(name) {
  type = entity.type;
  for (const express::cpp::Member* member : entity.slots) {
    if (isPart && member->attribute->owner != entity.entity) continue;
    attributes_.push_back({member->element.c_str(), Make(member->type)});
  }
}

void LateRecord::Describe(steprt::Description& description) {
  for (const Named& attribute : attributes_) {
    std::visit([&](auto& value) { description(attribute.name, value); }, *attribute.value);
  }
}

namespace {

struct Counter {
  Losses& losses;

  void operator()(const steprt::Text& text) const { losses.AddText(text.Get()); }
  void operator()(const steprt::Real& real) const { losses.AddReal(real.Get()); }
  void operator()(const steprt::List<steprt::Text>& list) const {
    for (const steprt::Text& text : list) (*this)(text);
  }
  void operator()(const steprt::List<steprt::Real>& list) const {
    for (const double real : list) losses.AddReal(real);
  }
  void operator()(const steprt::Value& value) const {
    if (value.Kind() == STEP_REAL) losses.AddReal(value.Real());
    if (value.Kind() == STEP_TEXT) losses.AddText(value.Chars());
    for (const steprt::Value& member : value) (*this)(member);
  }
  template <class Other>
  void operator()(const Other& /*value*/) const {}
};

}  // namespace

void LateRecord::CountLosses(Losses& losses) const {
  for (const Named& attribute : attributes_) std::visit(Counter{losses}, *attribute.value);
}

LateSchema::LateSchema(const express::cpp::Program& program) {
  std::vector<APPentity> rows;
  for (const auto& made : program.classes) {
    classes_.emplace(made->keyword, made.get());
    const char* const super = made->base ? made->base->keyword.c_str() : nullptr;
    rows.push_back({made->keyword.c_str(), Read, steprt::detail::WriteRecord, made->type, super});
  }
  table_ = std::make_unique<Table>(program.schemaName, rows);
  bound = this;
}

LateSchema::~LateSchema() { bound = nullptr; }

STEPheader* LateSchema::Read(STEPtransfer* t) {
  const express::cpp::Class& entity = *bound->classes_.at(rSTEPkeyword(t));
  return steprt::detail::ReadInto(t, new LateRecord(entity, rSTEPinstance(t), rSTEPispart(t)));
}

}  // namespace steprt_tools
