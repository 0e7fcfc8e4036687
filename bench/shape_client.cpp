#include "shape_client.h"

#include <array>
#include <charconv>
#include <cstring>

namespace bench {
namespace {

enum Type : int { kNode = 1, kGroup, kText, kNumbers, kWords, kFamily };

constinit long reportCount = 0;
void CountReport(const char*) { ++reportCount; }

template <int kType>
struct Entity : STEPheader {
  Entity() : STEPheader(nullptr) { type = kType; }
};

struct Node : Entity<kNode> {
  STEPheader* other = nullptr;
  void Read(STEPtransfer* t) { xrSTEPref(t, "Other", &other, kNode, true); }
};

struct Text : Entity<kText> {
  std::size_t length = 0;
  void Read(STEPtransfer* t) { length = std::strlen(rSTEPtext(t, "Value")); }
};

template <int kType>
struct Listed : Entity<kType> {
  STEPaggr* list = nullptr;
  ~Listed() override {
    if (!list) return;
    if (kType == kWords) {
      for (STEPlist* node = list->head; node; node = node->next) delete[] node->value.text;
    }
    DeleteSTEPlist(&list->head);
    delete list;
  }
};

struct Group : Listed<kGroup> {
  void Read(STEPtransfer* t) { xrSTEPaggr(t, "Nodes", &list, kNode, false); }
};
struct Numbers : Listed<kNumbers> {
  void Read(STEPtransfer* t) { xrSTEPaggrPrim(t, "Numbers", &list); }
};
struct Words : Listed<kWords> {
  void Read(STEPtransfer* t) { xrSTEPtextAggr(t, "Words", &list); }
};

// Reads the last child first, so that no walk from the start finds what it seeks early.
struct Family : Entity<kFamily> {
  int sum = 0;
  void Read(STEPtransfer* t) {
    char name[24] = "Child";
    for (int i = rSTEPint(t, "Count") - 1; i >= 0; --i) {
      *std::to_chars(name + 5, name + sizeof name - 1, i).ptr = '\0';
      sum += rSTEPint(t, name);
    }
  }
};

template <typename Class>
STEPheader* Read(STEPtransfer* t) {
  auto* object = new Class;
  object->Read(t);
  return object;
}

struct Descriptor {
  std::array<std::string, kKinds> names;
  APPentity rows[6 + kKinds] = {{"NODE", bench::Read<Node>, nullptr, kNode, nullptr},
                                {"GROUP", bench::Read<Group>, nullptr, kGroup, nullptr},
                                {"TEXT", bench::Read<Text>, nullptr, kText, nullptr},
                                {"NUMBERS", bench::Read<Numbers>, nullptr, kNumbers, nullptr},
                                {"WORDS", bench::Read<Words>, nullptr, kWords, nullptr},
                                {"FAMILY", bench::Read<Family>, nullptr, kFamily, nullptr}};

  Descriptor() {
    for (std::size_t i = 0; i < names.size(); ++i) {
      names[i] = "KIND" + std::to_string(i);
      rows[6 + i] = {names[i].c_str(), bench::Read<Node>, nullptr, kNode, nullptr};
    }
  }
};

APPobject0* ShapeSchema() {
  static const Descriptor descriptor;
  static APPtable schema("SHAPES", descriptor.rows, CountReport);
  return &schema;
}

}  // namespace

ShapeModel::ShapeModel() : reportsBefore_(reportCount) { AppObj(ShapeSchema()); }

void ShapeModel::Read(Form form, const std::string& path) {
  Name(path.c_str());
  if (form == Form::kXml) {
    ReadXml(nullptr);
  } else if (form == Form::kStandard) {
    STEPreadOptions options;
    options.check = true;
    ReadStandard(path.c_str(), &options);
  } else {
    STEPmodel::Read(true, nullptr);
  }
}

bool ShapeModel::IsAsExpected(const Shape& shape, int items) {
  long instances = 0;
  for (STEPheader* object = Inst(); object; object = object->NextHead()) ++instances;
  return instances == shape.instances.Of(items) && reportCount - reportsBefore_ == shape.reports.Of(items);
}

}  // namespace bench
