// What the models, their instances and the schema answer about types.
#include <algorithm>

#include "check.h"
#include "edit_population.h"
#include "type_table.h"

namespace fuzz {
namespace {

constexpr int kAllLevels = 31;
constexpr int kMost = 12;  // more than there are types

int AnyType(Bytes& bytes) { return bytes.Below(kStray + 2) - 1; }

bool IsIndexed() { return Schema()->index != nullptr; }

// What a query of that depth should find. A depth below 2 asks for the type alone, with or without a row.
std::vector<STEPheader*> Wanted(const std::vector<STEPheader*>& source, int type, int depth) {
  const std::vector<int> types = depth < 2 ? std::vector<int>{type} : TypesBelow(type, depth, IsIndexed());
  std::vector<STEPheader*> wanted;
  for (STEPheader* object : source) {
    const bool matches = object && std::find(types.begin(), types.end(), object->type) != types.end();
    if (matches) wanted.push_back(object);
  }
  return wanted;
}

void Expect(STEPlist* head, const std::vector<STEPheader*>& wanted) {
  const STEPlist* node = head;
  for (const STEPheader* object : wanted) {
    STEPRT_CHECK(node && node->value.object == object);
    node = node->next;
  }
  STEPRT_CHECK(!node);
  DeleteSTEPlist(&head);
}

void Expect(STEPaggr* aggr, const std::vector<STEPheader*>& wanted) {
  STEPRT_CHECK(aggr);
  Expect(aggr->head, wanted);
  delete aggr;
}

}  // namespace

void Population::Ask(Bytes& bytes, STEPheader* object) {
  const int type = AnyType(bytes);
  for (int i = 0; i < kModels; ++i) {
    const char* name = NameOf(type);
    STEPRT_CHECK(std::string(models_[i]->EntityName(type)) == (name ? name : "Unknown"));
    const auto first = std::find_if(members_[i].begin(), members_[i].end(),
                                    [=](const STEPheader* member) { return member->type == type; });
    STEPRT_CHECK(models_[i]->FindFirst(type) == (first == members_[i].end() ? nullptr : *first));
  }
  if (!object) return;
  const bool hasSchema = object->Model() != nullptr;
  const char* name = hasSchema ? NameOf(object->Type()) : nullptr;
  STEPRT_CHECK(std::string(object->EntityName()) == (name ? name : ""));
  const bool isKind = hasSchema ? IsBelow(type, object->Type()) : type < 0 || type == object->Type();
  STEPRT_CHECK(object->IsKindOf(type) == isKind);
}

void Population::Query(Bytes& bytes) {
  const int type = AnyType(bytes);
  const int depth = bytes.Below(6) - 1;
  const int list = bytes.Below(kModels);
  STEPmodel* const model = models_[list];
  Expect(model->GetSTEPlist(type, depth), Wanted(members_[list], type, depth));
  Expect(model->GetSTEPaggr(type, depth), Wanted(members_[list], type, depth));
  Expect(model->GetSTEPaggrAll(type), Wanted(members_[list], type, kAllLevels));

  References& source = aggregates_.Pick(bytes);
  Expect(model->GetSTEPaggr(&source.Aggr(), type, depth), Wanted(source.Members(), type, depth));
  Expect(model->GetSTEPaggrAll(&source.Aggr(), type), Wanted(source.Members(), type, kAllLevels));

  std::vector<int> types = TypesBelow(type, depth, IsIndexed());
  const int capacity = bytes.Below(kMost + 2) - 1;
  if (static_cast<int>(types.size()) > capacity) types.resize(static_cast<std::size_t>(std::max(capacity, 0)));
  int stored[kMost];
  STEPRT_CHECK(ExtractTypes(Schema(), type, stored, capacity, depth) == static_cast<int>(types.size()));
  STEPRT_CHECK(std::equal(types.begin(), types.end(), stored));
}

}  // namespace fuzz
