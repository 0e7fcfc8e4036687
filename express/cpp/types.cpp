#include "express/cpp/types.h"

#include <vector>

namespace express::cpp {
namespace {

std::string NamedText(const Type& type, const ClassNames& names) {
  const auto found = names.find(type.named.target);
  if (found == names.end()) return "steprt::Value";
  if (AsEntity(type.named.target) != nullptr) return "steprt::Ref<" + found->second + ">";
  const bool isSelect = AsType(type.named.target)->form == DefinedType::Form::kSelect;
  return isSelect ? found->second : "steprt::Enumeration<" + found->second + ">";
}

const char* SimpleText(Type::Kind kind) {
  switch (kind) {
    case Type::Kind::kNumber:
    case Type::Kind::kReal:
      return "steprt::Real";
    case Type::Kind::kInteger:
      return "steprt::Integer";
    case Type::Kind::kString:
      return "steprt::Text";
    case Type::Kind::kBinary:
      return "steprt::Binary";
    case Type::Kind::kBoolean:
      return "steprt::Boolean";
    case Type::Kind::kLogical:
      return "steprt::Logical";
    case Type::Kind::kGenericEntity:
      return "steprt::Ref<steprt::Record>";
    default:
      return "steprt::Value";  // GENERIC
  }
}

}  // namespace

const Type& TypeTexts::Underlying(const Type& type) {
  const Type* current = &type;
  std::vector<const DefinedType*> passed;
  for (;;) {
    const DefinedType* const defined = AsType(current->named.target);
    if (defined == nullptr || defined->form != DefinedType::Form::kUnderlying) break;
    const auto known = underlying_.find(defined);
    current = known != underlying_.end() ? known->second : defined->underlying.get();
    passed.push_back(defined);
  }
  for (const DefinedType* defined : passed) underlying_[defined] = current;
  return *current;
}

std::string TypeTexts::Of(const Type& type) {
  std::string before;
  std::string after;
  const Type* current = &Underlying(type);
  bool missing = false;  // elements may be missing
  for (; current->IsAggregate(); current = &Underlying(*current->element)) {
    before += "steprt::List<";
    after += '>';
    missing = current->optional;
  }
  std::string innermost = current->kind == Type::Kind::kNamed ? NamedText(*current, names_) : SimpleText(current->kind);
  // A list of reals has no place for `$`.
  if (missing && innermost == "steprt::Real") innermost = "steprt::Value";
  return before + innermost + after;
}

}  // namespace express::cpp
