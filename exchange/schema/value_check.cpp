#include "value_check.h"

namespace exchange {

namespace {

constexpr std::size_t kMostDepth = 500;

std::string Found(TokenKind kind) { return "found " + std::string(KindName(kind)); }

std::string Sizes(const Rule& rule) {
  const std::string least = std::to_string(rule.least);
  if (rule.most == Rule::kNoLimit) return "at least " + least;
  if (rule.most == rule.least) return least;
  return least + " to " + std::to_string(rule.most);
}

// Names of edition 3 stand for values that the file does not tell.
bool IsNameOfValue(TokenKind kind) {
  return kind == TokenKind::kValueName || kind == TokenKind::kConstant || kind == TokenKind::kResource;
}

}  // namespace

void ValueCheck::Check(const Record& record, std::size_t i, const std::vector<ValueSlot>& slots) {
  record_ = &record;
  slot_ = nullptr;
  keyword_ = SpellingAt(i);
  const std::size_t count = CountValues(i + 1);
  if (count != slots.size()) {
    return reports_.Add(Code::kAttributeCount, record.tokens[i].Offset(), [&] {
      return "expected " + std::to_string(slots.size()) + (slots.size() == 1 ? " attribute of " : " attributes of ") +
             Capitals(keyword_) + ", found " + std::to_string(count);
    });
  }
  i += 2;
  for (const ValueSlot& slot : slots) {
    CheckSlot(slot, i);
    i = AfterValue(record.tokens, i);
  }
}

void ValueCheck::CheckSlot(const ValueSlot& slot, std::size_t i) {
  slot_ = &slot;
  const TokenKind kind = KindAt(i);
  if (slot.derived) {
    if (kind != TokenKind::kDerived) Expected(Code::kDerivedValue, i, "'*' for the derived", Found(kind));
  } else if (kind == TokenKind::kDerived) {
    Expected(Code::kNotDerived, i, slot.rule->name + " for", "found '*', which is for derived attributes");
  } else if (kind != TokenKind::kOmitted) {
    CheckValue(*slot.rule, i);
  } else if (!slot.optional) {
    Expected(Code::kMissingValue, i, slot.rule->name + " for", "found '$', which is for optional attributes");
  }
}

void ValueCheck::CheckValue(const Rule& rule, std::size_t i) {
  const TokenKind kind = KindAt(i);
  if (IsNameOfValue(kind)) return;
  const auto wants = [&](TokenKind wanted) {
    if (kind != wanted) WrongKind(rule, i);
  };
  switch (rule.kind) {
    case Rule::Kind::kAny:
      return;
    case Rule::Kind::kNumber:
      return kind == TokenKind::kInteger ? void() : wants(TokenKind::kReal);
    case Rule::Kind::kReal:
      return CheckReal(rule, i);
    case Rule::Kind::kInteger:
      return wants(TokenKind::kInteger);
    case Rule::Kind::kText:
      return wants(TokenKind::kText);
    case Rule::Kind::kBinary:
      return wants(TokenKind::kBinary);
    case Rule::Kind::kBoolean:
    case Rule::Kind::kLogical:
    case Rule::Kind::kEnumeration:
      return CheckEnumerator(rule, i);
    case Rule::Kind::kEntity:
      return CheckReference(rule, i);
    case Rule::Kind::kSelect:
      return CheckSelect(rule, i);
    case Rule::Kind::kAggregate:
      return CheckAggregate(rule, i);
  }
}

void ValueCheck::CheckReal(const Rule& rule, std::size_t i) {
  const TokenKind kind = KindAt(i);
  if (kind == TokenKind::kReal) return;
  if (kind != TokenKind::kInteger) return WrongKind(rule, i);
  Expected(Code::kIntegerForReal, i, rule.name + " for", "found an integer, which has no point");
}

void ValueCheck::CheckEnumerator(const Rule& rule, std::size_t i) {
  if (KindAt(i) != TokenKind::kEnumerator) return WrongKind(rule, i);
  const std::string_view spelled = SpellingAt(i);
  const std::string_view item = spelled.substr(1, spelled.size() - 2);
  if (rule.kind != Rule::Kind::kEnumeration) {
    const bool fits = item == "T" || item == "F" || (item == "U" && rule.kind == Rule::Kind::kLogical);
    if (fits) return;
  } else if (rule.items.find(item) != rule.items.end() || rule.items.find(Capitals(item)) != rule.items.end()) {
    return;
  }
  Expected(Code::kUnknownEnumerator, i, rule.name + " for", "which has no " + std::string(spelled));
}

// A name without a record is reported as dangling.
void ValueCheck::CheckReference(const Rule& rule, std::size_t i) {
  if (KindAt(i) != TokenKind::kReference) return WrongKind(rule, i);
  const std::uint16_t type = names_.TypeOf(InstanceName(record_->bytes, record_->tokens[i]));
  if (type == kUnknownType || types_.EntitiesOf(type).Has(rule.entity)) return;
  Expected(Code::kWrongReference, i, rule.name + " for", "found a reference to " + types_.NameOf(type));
}

bool ValueCheck::FitsSelect(const Rule& rule, std::uint16_t type) const {
  return type == kUnknownType || rule.entities.Meets(types_.EntitiesOf(type));
}

void ValueCheck::CheckSelect(const Rule& rule, std::size_t i) {
  const TokenKind kind = KindAt(i);
  if (kind == TokenKind::kKeyword || kind == TokenKind::kUserKeyword) return CheckTyped(rule, i);
  if (kind != TokenKind::kReference) {
    return Expected(Code::kWrongSelect, i, "a reference or a typed value of " + rule.name + " for", Found(kind));
  }
  const std::uint16_t type = names_.TypeOf(InstanceName(record_->bytes, record_->tokens[i]));
  if (FitsSelect(rule, type)) return;
  Expected(Code::kWrongReference, i, rule.name + " for", "found a reference to " + types_.NameOf(type));
}

// keyword ( value )
void ValueCheck::CheckTyped(const Rule& rule, std::size_t i) {
  const std::string_view keyword = SpellingAt(i);
  auto member = rule.members.find(keyword);
  if (member == rule.members.end()) member = rule.members.find(Capitals(keyword));
  if (member == rule.members.end()) {
    return Expected(Code::kWrongSelect, i, rule.name + " for", "which has no " + std::string(keyword));
  }
  const Rule& inner = *member->second;
  const TokenKind kind = KindAt(i + 2);
  if (kind == TokenKind::kOmitted || kind == TokenKind::kDerived) return WrongKind(inner, i + 2);
  if (++depth_ < kMostDepth) CheckValue(inner, i + 2);
  --depth_;
}

// The number of values between the brackets that start at tokens[i].
std::size_t ValueCheck::CountValues(std::size_t i) const {
  std::size_t count = 0;
  for (++i; KindAt(i) != TokenKind::kClose; i = AfterValue(record_->tokens, i)) ++count;
  return count;
}

void ValueCheck::CheckAggregate(const Rule& rule, std::size_t i) {
  if (KindAt(i) != TokenKind::kOpen) return WrongKind(rule, i);
  const std::size_t open = i++;
  std::int64_t count = 0;
  for (++depth_; KindAt(i) != TokenKind::kClose; i = AfterValue(record_->tokens, i)) {
    ++count;
    const TokenKind kind = KindAt(i);
    if (kind == TokenKind::kOmitted || kind == TokenKind::kDerived) {
      if (kind == TokenKind::kDerived || !rule.gaps) WrongKind(*rule.element, i);
    } else if (depth_ < kMostDepth) {
      CheckValue(*rule.element, i);
    }
  }
  --depth_;
  if (count >= rule.least && count <= rule.most) return;
  Expected(Code::kAggregateSize, open, Sizes(rule) + (rule.most == 1 ? " value in" : " values in"),
           "found " + std::to_string(count));
}

void ValueCheck::WrongKind(const Rule& rule, std::size_t i) {
  const bool entity = rule.kind == Rule::Kind::kEntity;
  Expected(Code::kWrongKind, i, (entity ? "a reference to " : "") + rule.name + " for", Found(KindAt(i)));
}

// "expected WHAT ENTITY.attribute, FOUND"
void ValueCheck::Expected(Code code, std::size_t i, const std::string& what, const std::string& found) {
  reports_.Add(code, record_->tokens[i].Offset(), [&] { return "expected " + what + " " + Where() + ", " + found; });
}

std::string ValueCheck::Where() const { return Capitals(keyword_) + "." + slot_->name; }

}  // namespace exchange
