#include "fingerprint.h"

#include <cstring>
#include <fstream>
#include <string_view>

#include "building.h"

namespace bench {
namespace {

class Sum {
 public:
  std::uint64_t Value() const { return sum_; }

  void Add(std::uint64_t value) {
    sum_ = (sum_ ^ value) * 0x9e3779b97f4a7c15u;
    sum_ ^= sum_ >> 29;
  }
  void AddText(std::string_view text) {
    Add(text.size());
    for (const char c : text) Add(static_cast<unsigned char>(c));
  }

  void String(const char*, Text& text) {
    Add(text.chars ? 1 : 0);
    if (text.chars) AddText(text.chars);
  }
  void Integer(const char*, int& value) { Add(static_cast<unsigned>(value)); }
  void Real(const char*, double& value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    Add(bits);
  }
  void Enumerator(const char*, int& value, const char**, int) { Add(static_cast<unsigned>(value)); }
  void Reference(const char*, STEPheader*& slot, int) { Add(slot ? static_cast<unsigned>(slot->number) : 0); }
  void Reals(const char*, List& list) {
    for (STEPlist* node = Head(list); node; node = node->next) Real("", node->value.real);
  }
  void References(const char*, List& list, int expected) {
    for (STEPlist* node = Head(list); node; node = node->next) Reference("", node->value.object, expected);
  }

 private:
  STEPlist* Head(List& list) {
    Add(list.aggr ? 3 : 2);
    return list.aggr ? list.aggr->head : nullptr;
  }

  std::uint64_t sum_ = 1;
};

}  // namespace

std::uint64_t Fingerprint(STEPheader* first) {
  int place = 0;
  for (STEPheader* object = first; object; object = object->next) object->number = ++place;
  Sum sum;
  for (STEPheader* object = first; object; object = object->next) {
    sum.Add(static_cast<unsigned>(object->type));
    WithClass(object, [&](auto& entity) { entity.Attributes(sum); });
  }
  sum.Add(static_cast<unsigned>(place));
  return sum.Value();
}

std::uint64_t FileFingerprint(const std::string& path) {
  Sum sum;
  std::ifstream file(path, std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    if (line.find("FILE_NAME(") == line.npos) sum.AddText(line);
  }
  return sum.Value();
}

}  // namespace bench
