#include "value_check.h"

namespace exchange {

namespace {

constexpr std::size_t kMostDepth = 500;  // deeper values are not looked at, so that the stack stays small

std::string Found(TokenKind kind) { return "found " + std::string(KindName(kind)); }

std::string Sizes(const Rule& rule) {
  const std::string least = std::to_string(rule.least);
  if (rule.most == Rule::kNoLimit) return "at least " + least;
  if (rule.most == rule.least) return std::to_string(rule.most);
  return least + " to " + std::to_string(rule.most);
}

// Names of edition 3 stand for values that the file does not tell.
bool IsNameOfValue(TokenKind kind) {
  return kind == TokenKind::kValueName || kind == TokenKind::kConstant || kind == TokenKind::kResource;
}

}  // namespace

void ValueCheck::Check(const Record& record, std::size_t i, const std::vector<ValueSlot>& slots) {
  record_ = &record;
  keyword_ = i;
  const std::size_t count = CountValues(i + 1);
  if (count != slots.size()) {
    return reports_.Add(Code::kAttributeCount, record.tokens[i].Offset(), [&] {
      return "expected " + std::to_string(slots.size()) + (slots.size() == 1 ? " attribute of " : " attributes of ") +
             Capitals(SpellingAt(keyword_)) + ", found " + std::to_string(count);
    });
  }
  i += 2;
  for (const ValueSlot& slot : slots) i = CheckSlot(slot, i);
}

std::size_t ValueCheck::CheckSlot(const ValueSlot& slot, std::size_t i) {
  slot_ = &slot;
  const TokenKind kind = KindAt(i);
  if (slot.derived) {
    if (kind == TokenKind::kDerived) return i + 1;
    return Expected(Code::kDerivedValue, i, "'*' for the derived", Found(kind));
  }
  if (kind == TokenKind::kDerived) {
    return Expected(Code::kNotDerived, i, slot.rule->name + " for", "found '*', which is for derived attributes");
  }
  if (kind != TokenKind::kOmitted) return CheckValue(*slot.rule, i);
  if (slot.optional) return i + 1;
  return Expected(Code::kMissingValue, i, slot.rule->name + " for", "found '$', which is for optional attributes");
}

std::size_t ValueCheck::CheckValue(const Rule& rule, std::size_t i) {
  const TokenKind kind = KindAt(i);
  if (IsNameOfValue(kind)) return i + 1;
  const auto wants = [&](TokenKind wanted) { return kind == wanted ? i + 1 : WrongKind(rule, i); };
  switch (rule.kind) {
    case Rule::Kind::kNumber:
      return kind == TokenKind::kInteger ? i + 1 : wants(TokenKind::kReal);
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
    case Rule::Kind::kAny:
      break;
  }
  return After(i);
}

std::size_t ValueCheck::CheckReal(const Rule& rule, std::size_t i) {
  const TokenKind kind = KindAt(i);
  if (kind == TokenKind::kReal) return i + 1;
  if (kind != TokenKind::kInteger) return WrongKind(rule, i);
  return Expected(Code::kIntegerForReal, i, rule.name + " for", "found an integer, which has no point");
}

std::size_t ValueCheck::CheckEnumerator(const Rule& rule, std::size_t i) {
  if (KindAt(i) != TokenKind::kEnumerator) return WrongKind(rule, i);
  const std::string_view spelled = SpellingAt(i);
  const std::string_view item = spelled.substr(1, spelled.size() - 2);
  if (rule.kind != Rule::Kind::kEnumeration) {
    const bool fits = item == "T" || item == "F" || (item == "U" && rule.kind == Rule::Kind::kLogical);
    if (fits) return i + 1;
  } else if (rule.items.find(item) != rule.items.end() || rule.items.find(Capitals(item)) != rule.items.end()) {
    return i + 1;
  }
  return Expected(Code::kUnknownEnumerator, i, rule.name + " for", "which has no " + std::string(spelled));
}

// A name without a record is reported as dangling.
std::size_t ValueCheck::CheckReference(const Rule& rule, std::size_t i) {
  if (KindAt(i) != TokenKind::kReference) return WrongKind(rule, i);
  const std::uint16_t type = names_.TypeOf(InstanceName(record_->bytes, record_->tokens[i]));
  if (type == kUnknownType || types_.EntitiesOf(type).Has(rule.entity)) return i + 1;
  return Expected(Code::kWrongReference, i, rule.name + " for", "found a reference to " + types_.NameOf(type));
}

std::size_t ValueCheck::CheckSelect(const Rule& rule, std::size_t i) {
  const TokenKind kind = KindAt(i);
  if (kind == TokenKind::kKeyword || kind == TokenKind::kUserKeyword) return CheckTyped(rule, i);
  if (kind != TokenKind::kReference) {
    return Expected(Code::kWrongSelect, i, "a reference or a typed value of " + rule.name + " for", Found(kind));
  }
  const std::uint16_t type = names_.TypeOf(InstanceName(record_->bytes, record_->tokens[i]));
  if (type == kUnknownType || rule.entities.Meets(types_.EntitiesOf(type))) return i + 1;
  return Expected(Code::kWrongReference, i, rule.name + " for", "found a reference to " + types_.NameOf(type));
}

// keyword ( value )
std::size_t ValueCheck::CheckTyped(const Rule& rule, std::size_t i) {
  const std::string_view keyword = SpellingAt(i);
  auto member = rule.members.find(keyword);
  if (member == rule.members.end()) member = rule.members.find(Capitals(keyword));
  if (member == rule.members.end()) {
    return Expected(Code::kWrongSelect, i, rule.name + " for", "which has no " + std::string(keyword));
  }
  ++depth_;
  const std::size_t close = CheckElement(*member->second, i + 2);
  --depth_;
  return close + 1;
}

// A value within another one.
std::size_t ValueCheck::CheckElement(const Rule& rule, std::size_t i) {
  const TokenKind kind = KindAt(i);
  if (kind == TokenKind::kOmitted || kind == TokenKind::kDerived) return WrongKind(rule, i);
  return depth_ < kMostDepth ? CheckValue(rule, i) : After(i);
}

// The number of values between the brackets that start at tokens[i].
std::size_t ValueCheck::CountValues(std::size_t i) const {
  std::size_t count = 0;
  for (++i; KindAt(i) != TokenKind::kClose; i = After(i)) ++count;
  return count;
}

std::size_t ValueCheck::CheckAggregate(const Rule& rule, std::size_t i) {
  if (KindAt(i) != TokenKind::kOpen) return WrongKind(rule, i);
  const std::size_t open = i++;
  std::int64_t count = 0;
  for (++depth_; KindAt(i) != TokenKind::kClose; ++count) {
    const bool gap = rule.gaps && KindAt(i) == TokenKind::kOmitted;
    i = gap ? i + 1 : CheckElement(*rule.element, i);
  }
  --depth_;
  if (count < rule.least || count > rule.most) {
    Expected(Code::kAggregateSize, open, Sizes(rule) + (rule.most == 1 ? " value in" : " values in"),
             "found " + std::to_string(count));
  }
  return i + 1;
}

std::size_t ValueCheck::WrongKind(const Rule& rule, std::size_t i) {
  const bool entity = rule.kind == Rule::Kind::kEntity;
  return Expected(Code::kWrongKind, i, (entity ? "a reference to " : "") + rule.name + " for", Found(KindAt(i)));
}

// "expected WHAT ENTITY.attribute, FOUND"
std::size_t ValueCheck::Expected(Code code, std::size_t i, const std::string& what, const std::string& found) {
  reports_.Add(code, record_->tokens[i].Offset(), [&] { return "expected " + what + " " + Where() + ", " + found; });
  return code == Code::kAggregateSize ? i : After(i);
}

std::string ValueCheck::Where() const { return Capitals(SpellingAt(keyword_)) + "." + slot_->name; }

}  // namespace exchange
