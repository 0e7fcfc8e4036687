// Checks the values of a sound record.
#ifndef STEPRT_EXCHANGE_SCHEMA_VALUE_CHECK_H
#define STEPRT_EXCHANGE_SCHEMA_VALUE_CHECK_H

#include <cstddef>
#include <string>
#include <string_view>

#include "exchange/names.h"
#include "exchange/record.h"
#include "exchange/reports.h"
#include "instance_types.h"

namespace exchange {

class ValueCheck {
 public:
  ValueCheck(const Entities& entities, const InstanceTypes& types, const Names& names, Reports& reports)
      : entities_(entities), types_(types), names_(names), reports_(reports) {}

  // Checks the values between the brackets that start after the keyword at tokens[i].
  void Check(const Record& record, std::size_t i, const std::vector<ValueSlot>& slots);

 private:
  // Each of these gets the index of the value's first token and returns that after its last one, so that nested values
  // are walked once.
  std::size_t CheckSlot(const ValueSlot& slot, std::size_t i);
  std::size_t CheckValue(const Rule& rule, std::size_t i);
  std::size_t CheckSelect(const Rule& rule, std::size_t i);
  std::size_t CheckTyped(const Rule& rule, std::size_t i);
  std::size_t CheckAggregate(const Rule& rule, std::size_t i);
  std::size_t CheckElement(const Rule& rule, std::size_t i);
  std::size_t CheckReference(const Rule& rule, std::size_t i);
  std::size_t CheckEnumerator(const Rule& rule, std::size_t i);
  std::size_t CheckReal(const Rule& rule, std::size_t i);
  bool FitsSelect(const Rule& rule, std::uint16_t type) const;

  TokenKind KindAt(std::size_t i) const { return record_->tokens[i].Kind(); }
  std::string_view SpellingAt(std::size_t i) const { return Spelling(record_->bytes, record_->tokens[i]); }
  std::size_t CountValues(std::size_t i) const;
  std::size_t After(std::size_t i) const { return AfterValue(record_->tokens, i); }
  std::size_t WrongKind(const Rule& rule, std::size_t i);
  std::size_t Expected(Code code, std::size_t i, const std::string& what, const std::string& found);
  std::string Where() const;

  const Entities& entities_;
  const InstanceTypes& types_;
  const Names& names_;
  Reports& reports_;
  const Record* record_ = nullptr;
  std::size_t keyword_ = 0;          // the index of that of the record or part
  const ValueSlot* slot_ = nullptr;  // whose value is checked
  std::size_t depth_ = 0;            // values within values
};

}  // namespace exchange

#endif
