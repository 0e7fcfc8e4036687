#include "compare.h"

#include <cstdio>
#include <unordered_map>
#include <utility>
#include <vector>

#include "attributes.h"

namespace plan {
namespace {

using Positions = std::unordered_map<const STEPheader*, int>;

Positions PositionsIn(STEPmodel& model) {
  Positions positions;
  int position = 0;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) positions[object] = ++position;
  return positions;
}

// An attribute, its value or the members of its list spelled out.
struct Spelled {
  std::string name;
  std::vector<std::string> items;
};

// Spells out the attributes of an entity. What the readers tell apart is spelled apart.
class Speller : public Attributes {
 public:
  explicit Speller(const Positions& known) : positions(known) {}

  std::vector<Spelled> attributes;

  void Text(const char* name, STEPstring& value) override { Put(name, Quoted(value)); }
  void Integer(const char* name, int& value) override { Put(name, std::to_string(value)); }
  void Real(const char* name, double& value) override { Put(name, Digits(value)); }
  void Boolean(const char* name, bool& value) override { Put(name, value ? ".T." : ".F."); }
  void Enumeration(const char* name, int& value, const Enumerators& names) override { Put(name, names.names[value]); }
  void Select(const char* name, STEPselect& value) override { Put(name, Of(value)); }
  void Numbers(const char* name, NumberList& value) override {
    PutList(name, value, [](STEPlist& node) { return Digits(node.value.real); });
  }
  void Texts(const char* name, TextList& value) override {
    PutList(name, value, [](STEPlist& node) { return Quoted(node.value.text); });
  }

 protected:
  void ReferenceTo(const char* name, STEPheader*& value, int) override { Put(name, Of(value)); }
  void ReferencesTo(const char* name, List& value, int) override {
    PutList(name, value, [this](STEPlist& node) { return Of(node.value.object); });
  }

 private:
  void Put(const char* name, std::string value) { attributes.push_back({name, {std::move(value)}}); }

  // Whether there is a list comes before its members.
  template <class Spell>
  void PutList(const char* name, const List& list, Spell spell) {
    attributes.push_back({name, {list.aggregate ? "list" : "no list"}});
    for (STEPlist* node = list.Head(); node; node = node->next) attributes.back().items.push_back(spell(*node));
  }

  static std::string Quoted(const char* value) { return std::string("'") + value + "'"; }

  static std::string Digits(double value) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.6g", value);
    return digits;
  }

  std::string Of(const STEPheader* object) const {
    if (!object) return "$";
    const auto found = positions.find(object);
    return found == positions.end() ? "@elsewhere" : "@" + std::to_string(found->second);
  }

  std::string Of(STEPselect& value) const {
    switch (value.Type()) {
      case STEPselect::SEL_INT:
        return "integer " + std::to_string(value.GetInt());
      case STEPselect::SEL_REAL:
        return "real " + Digits(value.GetReal());
      case STEPselect::SEL_TEXT:
        return Quoted(value.GetCharPtr());
      case STEPselect::SEL_OBJ:
        return Of(value.GetSTEPobj());
      default:
        return "nothing";
    }
  }

  const Positions& positions;
};

// What the forms do to a value, as docs/format.md says. Empty for what they do not do.
std::string ChangeOf(const std::string& before, const std::string& after) {
  if (before == "''" && after == "'$'") return "omitted text, which XML writes as $";
  if (before == "-0" && after == "0") return "-0, read as 0";
  if (before == "nothing" && after == "$") return "select without a value, written as $";
  if (before == "no list" && after == "list") return "list that there was not, written as an empty one";
  if (before == "real -0" && after == "integer 0") return "-0, read as 0";
  if (before.rfind("real ", 0) != 0 || after != "integer " + before.substr(5)) return "";
  return "whole real of a select, written without a point";
}

std::string Joined(const Spelled& attribute) {
  std::string text = attribute.name + "=";
  for (const std::string& item : attribute.items) text += item + " ";
  return text;
}

using Counts = std::map<std::string, int>;

// Counts what the forms have changed; false with the first difference that they do not make.
bool CompareValues(const Spelled& before, const Spelled& after, Counts& counts) {
  if (before.name != after.name || before.items.size() != after.items.size()) return false;
  for (std::size_t i = 0; i < before.items.size(); ++i) {
    if (before.items[i] == after.items[i]) continue;
    const std::string change = ChangeOf(before.items[i], after.items[i]);
    if (change.empty()) return false;
    ++counts[change];
  }
  return true;
}

std::string NameOf(STEPheader* object) { return object ? object->EntityName() : "nothing"; }

// One step: two instances at the same place.
class Step {
 public:
  Step(const Positions& inBefore, const Positions& inAfter) : spelledBefore(inBefore), spelledAfter(inAfter) {}

  // False, and `difference` says why, for what the forms do not make.
  bool Compare(STEPheader* before, STEPheader* after) {
    if (!before || !after || before->Type() != after->Type()) return Differ(NameOf(before), NameOf(after));
    static_cast<Entity*>(before)->Describe(spelledBefore);
    static_cast<Entity*>(after)->Describe(spelledAfter);
    for (std::size_t i = 0; i < spelledBefore.attributes.size(); ++i) {
      const Spelled &left = spelledBefore.attributes[i], &right = spelledAfter.attributes[i];
      if (!CompareValues(left, right, counts)) return Differ(Joined(left), Joined(right));
    }
    return true;
  }

  void AddTo(Comparison& result) const {
    ++result.instances;
    if (!counts.empty()) ++result.changed;
    for (const auto& [change, count] : counts) {
      result.changes[change].values += count;
      ++result.changes[change].instances;
    }
  }

  std::string difference;

 private:
  bool Differ(const std::string& before, const std::string& after) {
    difference = before + "\n  and " + after;
    return false;
  }

  Speller spelledBefore, spelledAfter;
  Counts counts;
};

}  // namespace

std::string Comparison::Text() const {
  if (changed == 0) return "all equal";
  std::string text = "equal but for values in " + std::to_string(changed) + " of them";
  for (const auto& [name, change] : changes) {
    text += "\n  " + std::to_string(change.values) + " in " + std::to_string(change.instances) + "  " + name;
  }
  return text;
}

Comparison Compare(STEPmodel& before, STEPmodel& after) {
  const Positions inBefore = PositionsIn(before), inAfter = PositionsIn(after);
  Comparison result;
  STEPheader* left = before.Inst();
  STEPheader* right = after.Inst();
  while (left || right) {
    Step step(inBefore, inAfter);
    if (!step.Compare(left, right)) {
      result.difference = step.difference;
      return result;
    }
    step.AddTo(result);
    left = left->NextHead();
    right = right->NextHead();
  }
  result.isSound = true;
  return result;
}

}  // namespace plan
