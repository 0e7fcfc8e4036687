#include "compare.h"

#include <cstdio>
#include <unordered_map>

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

// Spells out an entity: "IFCWALL Name='Wall 1' ObjectPlacement=@12 ...".
class Speller : public Attributes {
 public:
  Speller(const Positions& known, std::string* out) : positions(known), text(*out) {}

  void Text(const char* name, STEPstring& value) override { Put(name, Quoted(value)); }
  void Integer(const char* name, int& value) override { Put(name, std::to_string(value)); }
  void Real(const char* name, double& value) override { Put(name, Spelled(value)); }
  void Boolean(const char* name, bool& value) override { Put(name, value ? ".T." : ".F."); }
  void Enumeration(const char* name, int& value, const Enumerators& names) override { Put(name, names.names[value]); }
  void Select(const char* name, STEPselect& value) override { Put(name, Spelled(value)); }
  void Numbers(const char* name, NumberList& value) override {
    PutList(name, value, [](STEPlist& node) { return Spelled(node.value.real); });
  }
  void Texts(const char* name, TextList& value) override {
    PutList(name, value, [](STEPlist& node) { return Quoted(node.value.text); });
  }

 protected:
  void ReferenceTo(const char* name, STEPheader*& value, int) override { Put(name, Spelled(value)); }
  void ReferencesTo(const char* name, List& value, int) override {
    PutList(name, value, [this](STEPlist& node) { return Spelled(node.value.object); });
  }

 private:
  void Put(const char* name, const std::string& value) {
    text += ' ';
    text += name;
    text += '=';
    text += value;
  }

  template <class Spell>
  void PutList(const char* name, const List& list, Spell spell) {
    std::string items = "(";
    for (STEPlist* node = list.Head(); node; node = node->next) items += spell(*node) + " ";
    Put(name, items + ")");
  }

  static std::string Quoted(const char* value) { return std::string("'") + value + "'"; }

  static std::string Spelled(double value) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.6g", value == 0 ? 0 : value);  // -0 is written -0 and read as 0
    return digits;
  }

  std::string Spelled(const STEPheader* object) const {
    if (!object) return "$";
    const auto found = positions.find(object);
    return found == positions.end() ? "@elsewhere" : "@" + std::to_string(found->second);
  }

  std::string Spelled(STEPselect& value) const {
    switch (value.Type()) {
      case STEPselect::SEL_INT:
        return std::to_string(value.GetInt());
      case STEPselect::SEL_REAL:
        return Spelled(value.GetReal());
      case STEPselect::SEL_TEXT:
        return Quoted(value.GetCharPtr());
      case STEPselect::SEL_OBJ:
        return Spelled(value.GetSTEPobj());
      default:
        return "$";
    }
  }

  const Positions& positions;
  std::string& text;
};

std::string Spell(STEPheader* object, const Positions& positions) {
  if (!object) return "nothing";
  std::string text = object->EntityName();
  Speller speller(positions, &text);
  static_cast<Entity*>(object)->Describe(speller);
  return text;
}

}  // namespace

Comparison Compare(STEPmodel& a, STEPmodel& b) {
  const Positions inA = PositionsIn(a), inB = PositionsIn(b);
  Comparison result;
  STEPheader* left = a.Inst();
  STEPheader* right = b.Inst();
  while (left || right) {
    const std::string spelledLeft = Spell(left, inA), spelledRight = Spell(right, inB);
    if (spelledLeft != spelledRight) {
      result.difference = spelledLeft + "\n  and " + spelledRight;
      return result;
    }
    ++result.instances;
    left = left->NextHead();
    right = right->NextHead();
  }
  result.equal = true;
  return result;
}

}  // namespace plan
