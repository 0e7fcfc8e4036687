#include "compare.h"

#include <cctype>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace plan {
namespace {

constexpr std::size_t kExamples = 3;

void NumberByPlace(steprt::Model& model) {
  int place = 0;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) object->number = ++place;
}

class SamePlace final : public steprt::SameInstance {
 public:
  bool operator()(const STEPheader* a, const STEPheader* b) const override { return a->number == b->number; }
};

// The attributes of one record with their names.
class Attributes final : public steprt::Description {
 public:
  struct Item {
    const char* name;
    void* value;
    const steprt::AttributeType* type;
    std::string Text() const {
      std::string text;
      type->print(value, text);
      return text;
    }
  };
  std::vector<Item> items;

 private:
  void Visit(const char* name, void* value, const steprt::AttributeType& type) override {
    items.push_back({name, value, &type});
  }
};

// The number at the start of `text` with six digits, and -0 as 0. Sets `end` to what follows it.
std::string SixDigits(const char* text, const char** end) {
  char* after = nullptr;
  double value = std::strtod(text, &after);
  if (value == 0) value = 0;
  *end = after;
  char digits[32];
  std::snprintf(digits, sizeof digits, "%.6g", value);
  return digits;
}

// A printed value with six digits of each real. Texts, keywords and references stay as they are.
std::string Rounded(const std::string& text) {
  std::string rounded;
  bool isQuoted = false;
  for (const char* c = text.c_str(); *c;) {
    const bool isWord = !rounded.empty() && (std::isalnum(static_cast<unsigned char>(rounded.back())) != 0 ||
                                             rounded.back() == '#' || rounded.back() == '_');
    isQuoted = isQuoted != (*c == '\'');
    const bool startsNumber = std::isdigit(static_cast<unsigned char>(*c)) || *c == '-';
    if (startsNumber && !isQuoted && !isWord) {
      rounded += SixDigits(c, &c);
    } else {
      rounded += *c++;
    }
  }
  return rounded;
}

void AddLoss(std::string example, Comparison* result) {
  ++result->lost;
  if (result->examples.size() < kExamples) result->examples.push_back(std::move(example));
}

void CompareAttributes(steprt::Record& before, steprt::Record& after, Comparison* result) {
  Attributes ours, theirs;
  before.Describe(ours);
  after.Describe(theirs);
  for (std::size_t i = 0; i < ours.items.size(); ++i) {
    const Attributes::Item& our = ours.items[i];
    const Attributes::Item& their = theirs.items[i];
    if (our.type->equals(our.value, their.value, SamePlace())) continue;
    const std::string was = our.Text(), is = their.Text();
    if (was == is || (was == "($)" && is == "$")) {
      ++result->unresolved;
    } else if (Rounded(was) == Rounded(is)) {
      ++result->rounded;
    } else {
      AddLoss(std::string(before.EntityName()) + "." + our.name + ": " + was + " became " + is, result);
    }
  }
}

std::string Line(int count, const char* what) { return "\n  " + std::to_string(count) + " " + what; }

}  // namespace

std::string Comparison::Text() const {
  if (rounded + unresolved + lost == 0) return "all equal";
  std::string text = "equal but for these values";
  if (rounded > 0) text += Line(rounded, "with reals of more than the six digits that are written");
  if (unresolved > 0) text += Line(unresolved, "with references that the file could not resolve, written as $");
  if (lost > 0) text += Line(lost, "lost or changed");
  for (const std::string& example : examples) text += "\n    " + example;
  return text;
}

Comparison Compare(steprt::Model& before, steprt::Model& after) {
  NumberByPlace(before);
  NumberByPlace(after);
  Comparison result;
  STEPheader* left = before.Inst();
  STEPheader* right = after.Inst();
  for (; left && right; left = left->NextHead(), right = right->NextHead()) {
    ++result.instances;
    auto& was = static_cast<steprt::Record&>(*left);
    auto& is = static_cast<steprt::Record&>(*right);
    if (steprt::Equal(was, is, SamePlace())) continue;
    if (was.Type() == is.Type()) {
      CompareAttributes(was, is, &result);
    } else {
      AddLoss(steprt::Print(was) + " became " + steprt::Print(is), &result);
    }
  }
  for (; left; left = left->NextHead()) AddLoss(std::string(left->EntityName()) + " is missing", &result);
  for (; right; right = right->NextHead()) AddLoss(std::string(right->EntityName()) + " is new", &result);
  return result;
}

}  // namespace plan
