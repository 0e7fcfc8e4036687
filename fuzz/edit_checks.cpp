#include "edit_checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "bytes.h"
#include "edit_aggregates.h"
#include "edit_values.h"
#include "support/proj_schema.h"

namespace fuzz {
namespace {

using namespace steprt_test;

constexpr int kLastId = 99999;
constexpr int kAllLevels = 31;

int NextIdAfter(int id) { return id >= kLastId ? 0 : id + 1; }

// Of a row, of none, and below 0.
int AnyType(Bytes& bytes) {
  constexpr int kTypes[] = {kProduct, kPoint, kPerson, kWall, kDoor, kSample, kNote, kProbe, 999, -1};
  return kTypes[bytes.Below(10)];
}

// ---- what the schema says, without an index and without a cache

const APPentity* RowOf(int type) {
  for (const APPobject0* schema = ProjSchema(); schema; schema = schema->next) {
    for (const APPentity* row = schema->entities; row->name; ++row) {
      if (row->type == type) return row;
    }
  }
  return nullptr;
}

bool IsBelow(int ancestor, int type) {
  if (ancestor < 0 || ancestor == type) return true;
  const APPentity* row = RowOf(type);
  // Of the two rows with a supertype, PRODUCT is the one of WALL, and WALL that of DOOR.
  return row && row->super && IsBelow(ancestor, type == kWall ? kProduct : kWall);
}

// The type and what is below it, of a schema in which no type has two direct subtypes.
std::vector<int> TypesBelow(int type, int depth) {
  std::vector<int> types;
  if (RowOf(type)) types.push_back(type);
  if (depth > 0 && type == kProduct) types.push_back(kWall);
  if ((depth > 1 && type == kProduct) || (depth > 0 && type == kWall)) types.push_back(kDoor);
  return types;
}

// What a query of that depth must find. A depth below 2 asks for the type alone, with or without a row.
Members Wanted(const Members& source, int type, int depth) {
  const std::vector<int> types = depth < 2 ? std::vector<int>{type} : TypesBelow(type, depth);
  Members wanted;
  for (STEPheader* object : source) {
    if (object && std::count(types.begin(), types.end(), object->type) > 0) wanted.push_back(object);
  }
  return wanted;
}

void ExpectFound(STEPlist* head, const Members& wanted) {
  Members found;
  for (const STEPlist* node = head; node; node = node->next) found.push_back(node->value.object);
  EXPECT_EQ(found, wanted);
  DeleteSTEPlist(&head);
}

void ExpectFound(STEPaggr* aggr, const Members& wanted) {
  ExpectFound(aggr->head, wanted);
  delete aggr;
}

// ---- the steps

class Population {
 public:
  ~Population() {
    for (STEPheader* object : members_[kLoose]) delete object;
    CurrentModel(nullptr);
  }

  // An instance, or null.
  STEPheader* Pick(Bytes& bytes) const {
    const Members& members = members_[bytes.Below(kModels + 1)];
    const std::size_t index = bytes.Byte();
    return index < members.size() ? members[index] : nullptr;
  }

  void Step(Bytes& bytes, STEPheader* object) {
    constexpr void (Population::*kSteps[])(Bytes & bytes, STEPheader * object) = {
        &Population::Construct, &Population::Construct, &Population::Construct, &Population::Construct,
        &Population::Insert,    &Population::Insert,    &Population::Remove,    &Population::Destroy,
        &Population::Clear,     &Population::Retype,    &Population::Index,     &Population::NextId,
        &Population::Ask,       &Population::Query,     &Population::Query,     &Population::Query};
    (this->*kSteps[bytes.Below(16)])(bytes, object);
    Compare();
  }

  void StepAggregates(Bytes& bytes, STEPheader* object) {
    STEPheader* const other = Pick(bytes);
    const int action = bytes.Below(4);
    if (action > 0) {
      References& references = references_[bytes.Below(3)];
      return action == 1 ? references.Ask(object, AnyType(bytes)) : references.Edit(bytes, object, other);
    }
    const int edit = bytes.Below(5);
    if (edit < 2) reals_.Prepend(bytes.Any<double>());
    if (edit == 2 || edit == 3) reals_.Append(bytes.Any<double>());
    if (edit == 4) reals_.DeleteAt(bytes.Any<std::int8_t>());
    reals_.Compare();
  }

 private:
  static constexpr int kModels = 2;
  static constexpr int kLoose = kModels;  // the list of those that are on no model's

  // In a model that is named, in the current one, or in none.
  void Construct(Bytes& bytes, STEPheader*) {
    const int list = bytes.Below(kModels + 1);
    const bool isNamed = bytes.Below(2) != 0;
    STEPmodel* model = list == kLoose ? nullptr : models_[list];
    CurrentModel(isNamed ? nullptr : model);
    auto* object = new STEPheader(isNamed ? model : nullptr);
    CurrentModel(&head_);
    EXPECT_TRUE(object->Model() == model && object->Type() == -1 && *object->Id() == '\0');
    members_[list].push_back(object);
  }

  void Insert(Bytes& bytes, STEPheader* object) {
    const int list = bytes.Below(kModels);
    models_[list]->Insert(object);
    if (!object) return;
    Drop(object);
    members_[list].push_back(object);
  }

  // Perhaps from a model that does not have it. One that is removed keeps its model.
  void Remove(Bytes& bytes, STEPheader* object) {
    Members& members = members_[bytes.Below(kModels)];
    const STEPmodel* const before = object ? object->Model() : nullptr;
    models_[&members - members_]->RmInst(object);
    EXPECT_EQ(object ? object->Model() : nullptr, before);
    const auto place = std::find(members.begin(), members.end(), object);
    if (place == members.end()) return;
    members.erase(place);
    members_[kLoose].push_back(object);
  }

  void Destroy(Bytes&, STEPheader* object) {
    if (!object) return;
    for (References& references : references_) references.Forget(object);
    Drop(object);
    delete object;
  }

  void Clear(Bytes& bytes, STEPheader*) {
    const int list = bytes.Below(kModels);
    if (bytes.Below(8) > 0) return;
    for (STEPheader* object : members_[list]) {
      for (References& references : references_) references.Forget(object);
    }
    members_[list].clear();
    models_[list]->Delete();
    lastIds_[list] = 0;
  }

  // The copy is on no list, and its end takes nothing off one.
  void Retype(Bytes& bytes, STEPheader* object) {
    if (!object) return;
    object->Type(AnyType(bytes));
    const std::string id = bytes.Text();
    object->Id(id.c_str());
    EXPECT_EQ(object->Id(), id.substr(0, 63));
    STEPheader copy(*object);
    EXPECT_TRUE(copy.Type() == object->Type() && copy.Model() == object->Model());
  }

  void Index(Bytes& bytes, STEPheader*) {
    const bool isBuilt = bytes.Below(2) != 0;
    isBuilt ? models_[bytes.Below(kModels)]->PrepareHash() : head_.RemoveHash();
    EXPECT_EQ(ProjSchema()->index != nullptr, isBuilt);
  }

  void NextId(Bytes& bytes, STEPheader*) {
    const int list = bytes.Below(kModels);
    if (bytes.Below(8) == 0) lastIds_[list] = models_[list]->lastId = kLastId - 1;
    lastIds_[list] = NextIdAfter(lastIds_[list]);
    EXPECT_EQ(models_[list]->GetEntId(), lastIds_[list]);
    const std::string prefix = bytes.Text();
    lastIds_[0] = NextIdAfter(lastIds_[0]);
    EXPECT_EQ(AutoId(0, prefix.c_str()), prefix.substr(0, 63) + std::to_string(lastIds_[0]));
  }

  void Ask(Bytes& bytes, STEPheader* object) {
    const int type = AnyType(bytes);
    const auto nameOf = [](int each, const char* none) { return RowOf(each) ? RowOf(each)->name : none; };
    for (int i = 0; i < kModels; ++i) {
      EXPECT_STREQ(models_[i]->EntityName(type), nameOf(type, "Unknown"));
      EXPECT_EQ(models_[i]->FindFirst(type), FirstOf(members_[i], type));
    }
    if (!object) return;
    const bool hasSchema = object->Model() != nullptr;
    EXPECT_STREQ(object->EntityName(), hasSchema ? nameOf(object->Type(), "") : "");
    EXPECT_EQ(object->IsKindOf(type), hasSchema ? IsBelow(type, object->Type()) : type < 0 || type == object->Type());
  }

  void Query(Bytes& bytes, STEPheader*) {
    const int type = AnyType(bytes);
    const int depth = bytes.Below(6) - 1;
    const int list = bytes.Below(kModels);
    References& source = references_[bytes.Below(3)];
    STEPmodel* const model = models_[list];
    ExpectFound(model->GetSTEPlist(type, depth), Wanted(members_[list], type, depth));
    ExpectFound(model->GetSTEPaggr(type, depth), Wanted(members_[list], type, depth));
    ExpectFound(model->GetSTEPaggrAll(type), Wanted(members_[list], type, kAllLevels));
    ExpectFound(model->GetSTEPaggr(&source.aggr, type, depth), Wanted(source.members, type, depth));
    ExpectFound(model->GetSTEPaggrAll(&source.aggr, type), Wanted(source.members, type, kAllLevels));

    std::vector<int> types = TypesBelow(type, depth);
    const int capacity = bytes.Below(6) - 1;
    types.resize(std::min(types.size(), static_cast<std::size_t>(std::max(capacity, 0))));
    std::vector<int> stored(6);
    stored.resize(static_cast<std::size_t>(ExtractTypes(ProjSchema(), type, stored.data(), capacity, depth)));
    EXPECT_EQ(stored, types);
  }

  void Drop(STEPheader* object) {  // from its vector
    for (Members& members : members_) members.erase(std::remove(members.begin(), members.end(), object), members.end());
  }

  void Compare() {
    for (int i = 0; i < kModels; ++i) {
      STEPheader** link = &models_[i]->first;
      for (STEPheader* member : members_[i]) {
        EXPECT_TRUE(*link == member && member->Model() == models_[i]);
        link = member->pNextHead();
      }
      EXPECT_TRUE(!*link && models_[i]->tail == link);
      EXPECT_EQ(models_[i]->IsEmpty() != 0, members_[i].empty());
    }
  }

  References references_[3];
  Reals reals_;
  ProjModel head_;
  STEPmodel second_{static_cast<STEPmodel*>(&head_)};
  STEPmodel* const models_[kModels] = {&head_, &second_};
  Members members_[kModels + 1];
  int lastIds_[kModels] = {};
};

}  // namespace

void CheckEdits(const std::string& all) {
  Bytes bytes(all);
  Population population;
  Selects selects;
  Strings strings;
  while (!bytes.IsEmpty()) {
    STEPheader* const object = population.Pick(bytes);
    const int kind = bytes.Below(8);
    if (kind < 3) population.StepAggregates(bytes, object);
    if (kind == 3) selects.Step(bytes, object);
    if (kind == 4) strings.Step(bytes);
    if (kind > 4) population.Step(bytes, object);
  }
}

}  // namespace fuzz
