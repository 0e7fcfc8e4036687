// A schema that is bound when the program runs: a descriptor for the library, made from a text in EXPRESS. Its records
// keep their values in the attribute types that a compiled class has, so that both write the same.
//
//   LateSchema schema(program);
//   steprt::Model model(schema.Descriptor());
#ifndef STEPRT_TOOLS_LATE_SCHEMA_H
#define STEPRT_TOOLS_LATE_SCHEMA_H

#include <steprt/record.h>

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "express/cpp/program.h"
#include "losses.h"
#include "table.h"

namespace steprt_tools {

// A record, or a part of a complex instance, of an entity of the schema.
class LateRecord : public steprt::Record {
 public:
  // A part has the attributes only that its entity declares itself.
  LateRecord(const express::cpp::Class& entity, std::uint64_t name, bool isPart);
  void Describe(steprt::Description& description) override;

  std::uint64_t Name() const { return name_; }
  void CountLosses(Losses& losses) const;

 private:
  using Attribute =
      std::variant<steprt::Value, steprt::Text, steprt::Real, steprt::List<steprt::Text>, steprt::List<steprt::Integer>,
                   steprt::List<steprt::Real>, steprt::List<steprt::Ref<steprt::Record>>>;
  struct Named {
    const char* name;
    std::unique_ptr<Attribute> value;
  };
  static std::unique_ptr<Attribute> Make(std::string_view type);

  std::uint64_t name_;
  std::vector<Named> attributes_;
};

// One at a time: the rows of a descriptor have no place for what they belong to.
class LateSchema {
 public:
  explicit LateSchema(const express::cpp::Program& program);
  ~LateSchema();
  LateSchema(const LateSchema&) = delete;
  LateSchema& operator=(const LateSchema&) = delete;

  APPobject0* Descriptor() const { return table_->Descriptor(); }

 private:
  static STEPheader* Read(STEPtransfer* t);

  std::unordered_map<std::string_view, const express::cpp::Class*> classes_;  // by keyword
  std::unique_ptr<Table> table_;
};

}  // namespace steprt_tools

#endif
