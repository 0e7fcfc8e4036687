#include "schema_check.h"

#include <optional>
#include <utility>

#include "exchange/passes.h"
#include "instance_types.h"
#include "value_check.h"

namespace exchange {

namespace {

// What both passes know of the schema.
struct Bound {
  Bound(const express::Model& model, const express::Schema& schema) : entities(model, schema), types(entities) {}

  Entities entities;
  InstanceTypes types;
};

class TypedFirstPass : public FirstPass {
 public:
  TypedFirstPass(const express::Model& model, const Input& input, const SurveyOptions& options, Reports& reports)
      : FirstPass(input, options, reports), model_(model), reports_(reports) {}

  std::optional<Bound>& Schema() {
    if (!bound_) OnData();  // the file has no record
    return bound_;
  }
  const std::string& SchemaName() const { return name_; }

 protected:
  std::uint16_t TypeOf(const Record& record) override { return bound_->types.NumberOf(record); }

  void OnData() override {
    bool named = true;
    const express::Schema& schema = ChooseSchema(model_, FileHeader(), named);
    name_ = schema.name.text;
    bound_.emplace(model_, schema);
    if (named || FileHeader().schemas.empty() || FileHeader().schemas.front().empty()) return;
    reports_.Add(Code::kSchemaDiffers, SchemaOffset(),
                 [&] { return "expected the schema " + Capitals(name_) + ", found " + FileHeader().schemas.front(); });
  }

 private:
  const express::Model& model_;
  Reports& reports_;
  std::optional<Bound> bound_;
  std::string name_;
};

class TypedSecondPass : public SecondPass {
 public:
  TypedSecondPass(Bound& bound, const Input& input, const SurveyOptions& options, FirstPass& first, Reports& reports)
      : SecondPass(input, options, first.AllNames(), first.Counts(), reports),
        bound_(bound),
        values_(bound.entities, bound.types, first.AllNames(), reports) {}

 protected:
  void Look(const Record& record) override {
    const std::uint16_t number = bound_.types.NumberOf(record);
    if (record.complex || number == kUnknownType) CheckKeywords(record);
    if (number == kUnknownType) return;
    const InstanceType& type = bound_.types.At(number);
    for (const InstanceType::Fault& fault : type.faults) {
      AllReports().Add(fault.code, record.tokens.front().Offset(), [&] { return fault.message; });
    }
    if (!type.complex) return values_.Check(record, 0, type.parts.front().slots);
    for (std::size_t i = 0; i < record.tokens.size(); i = AfterValue(record.tokens, i)) {
      const auto entity = bound_.entities.Find(Spelling(record.bytes, record.tokens[i]));
      values_.Check(record, i, type.Find(*entity)->slots);
    }
  }

 private:
  // Unknown ones, and the order of parts.
  void CheckKeywords(const Record& record) {
    std::string_view last;
    for (std::size_t i = 0; i < record.tokens.size(); i = AfterValue(record.tokens, i)) {
      const Token token = record.tokens[i];
      const std::string_view keyword = Spelling(record.bytes, token);
      CheckKeyword(token, keyword);
      if (keyword == last) {
        AllReports().Add(Code::kDoubledPart, token.Offset(),
                         [&] { return "expected each part once, found " + std::string(keyword) + " again"; });
      } else if (keyword < last) {
        AllReports().Add(Code::kPartOrder, token.Offset(), [&] {
          return "expected parts in the order of the alphabet, found " + std::string(keyword) + " after " +
                 std::string(last);
        });
      }
      last = keyword;
    }
  }

  void CheckKeyword(Token token, std::string_view keyword) {
    if (token.Is(TokenKind::kUserKeyword)) {
      AllReports().Add(Code::kUserDefined, token.Offset(),
                       [&] { return "expected an entity of the schema, found " + std::string(keyword); });
    } else if (!bound_.entities.Find(keyword)) {
      AllReports().Add(Code::kUnknownEntity, token.Offset(),
                       [&] { return "expected an entity of the schema, " + std::string(keyword) + " is none"; });
    }
  }

  Bound& bound_;
  ValueCheck values_;
};

}  // namespace

const express::Schema& ChooseSchema(const express::Model& model, const Header& header, bool& named) {
  for (const std::string& name : header.schemas) {
    const express::Schema* const schema = model.Find(SchemaName(name));
    named = schema != nullptr;
    if (named) return *schema;
  }
  named = false;
  return *model.schemas.front();
}

Survey CheckAgainst(const express::Model& model, const Input& input, const SurveyOptions& options, Reports& reports,
                    std::string* schema) {
  TypedFirstPass first(model, input, options, reports);
  first.Run();
  TypedSecondPass(*first.Schema(), input, options, first, reports).Run();
  reports.Sort();
  if (schema != nullptr) *schema = first.SchemaName();
  return {first.FileHeader(), first.Counts(), std::move(first.Keywords())};
}

}  // namespace exchange
