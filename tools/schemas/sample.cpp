#include "sample.h"

#include <unordered_map>

#include "express/cpp/names.h"

namespace steprt_tools {
namespace {

using namespace express;

class Sample {
 public:
  explicit Sample(const std::vector<const Entity*>& entities) {
    for (const Entity* entity : entities) {
      if (!entity->abstract) numbers_.emplace(entity, static_cast<int>(2 * numbers_.size() + 1));
    }
  }

  // Two records: one with all values, one without the optional ones.
  std::string Records(const Entity& entity) {
    const auto number = numbers_.find(&entity);
    return number == numbers_.end() ? ""
                                    : Record(entity, number->second, true) + Record(entity, number->second + 1, false);
  }

 private:
  std::string Record(const Entity& entity, int number, bool full) {
    current_ = number;
    std::string out = "#" + std::to_string(number) + " = " + cpp::UpperCase(entity.name.text) + "(";
    for (const Slot& slot : entity.slots) {
      if (out.back() != '(') out += ',';
      if (slot.derived) {
        out += '*';
      } else if (slot.effective->optional && !full) {
        out += '$';
      } else {
        out += Value(*slot.effective->type);
      }
    }
    return out + ");\n";
  }

  std::string Value(const Type& type) {
    switch (type.kind) {
      case Type::Kind::kNumber:
      case Type::Kind::kReal:
        return "1.5";
      case Type::Kind::kInteger:
        return "7";
      case Type::Kind::kString:
        return "'text'";
      case Type::Kind::kBinary:
        return "\"0A\"";
      case Type::Kind::kBoolean:
        return ".T.";
      case Type::Kind::kLogical:
        return ".U.";
      case Type::Kind::kGenericEntity:
        return "#1";
      case Type::Kind::kNamed:
        return NamedValue(*type.named.target);
      case Type::Kind::kGeneric:
        return "7";
      default:
        return "(" + Value(*type.element) + "," + (type.optional ? "$" : Value(*type.element)) + ")";
    }
  }

  std::string NamedValue(const Declaration& declaration) {
    if (const Entity* entity = AsEntity(&declaration)) return Reference(*entity);
    const DefinedType& type = *AsType(&declaration);
    if (type.form == DefinedType::Form::kUnderlying) return Value(*type.underlying);
    if (type.form == DefinedType::Form::kEnumeration) {
      return type.allItems.empty() ? "$" : '.' + cpp::UpperCase(type.allItems.back().text) + '.';
    }
    if (type.allMembers.empty()) return "$";
    // Each use of a select takes its next member.
    const Declaration& member = *type.allMembers[uses_[&type]++ % type.allMembers.size()];
    if (AsEntity(&member) != nullptr) return NamedValue(member);
    return cpp::UpperCase(member.name.text) + '(' + NamedValue(member) + ')';
  }

  // A record of the entity, or of the nearest subtype that has one. Not the record itself, which is not
  // known before it has been read.
  std::string Reference(const Entity& wanted) {
    std::vector<const Entity*> candidates = {&wanted};
    for (std::size_t i = 0; i < candidates.size(); ++i) {
      const auto number = numbers_.find(candidates[i]);
      if (number != numbers_.end()) return "#" + std::to_string(number->second + (number->second == current_ ? 1 : 0));
      candidates.insert(candidates.end(), candidates[i]->subtypes.begin(), candidates[i]->subtypes.end());
    }
    return "$";
  }

  std::unordered_map<const Entity*, int> numbers_;  // of the record with all values
  std::unordered_map<const DefinedType*, std::size_t> uses_;
  int current_ = 0;  // the record at hand
};

}  // namespace

std::string SampleFile(const std::string& schemaName, const std::vector<const Entity*>& entities) {
  std::string out =
      "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'1');\nFILE_NAME('','',(''),(''),'','','');\n"
      "FILE_SCHEMA(('" +
      schemaName + "'));\nENDSEC;\nDATA;\n";
  Sample sample(entities);
  for (const Entity* entity : entities) out += sample.Records(*entity);
  return out + "ENDSEC;\nEND-ISO-10303-21;\n";
}

}  // namespace steprt_tools
