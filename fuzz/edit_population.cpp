#include "edit_population.h"

#include <algorithm>

#include "check.h"

namespace fuzz {
namespace {

constexpr int kLastId = 99999;

int AnyType(Bytes& bytes) { return bytes.Below(kStray + 2) - 1; }

int NextIdAfter(int id) { return id >= kLastId ? 0 : id + 1; }

}  // namespace

Population::Population(Aggregates& aggregates) : aggregates_(aggregates), second_(&head_), models_{&head_, &second_} {}

Population::~Population() {
  for (STEPheader* object : members_[kLoose]) delete object;
  CurrentModel(nullptr);
}

STEPheader* Population::Pick(Bytes& bytes) const {
  const Members& members = members_[bytes.Below(kModels + 1)];
  const std::size_t index = bytes.Byte();
  return index < members.size() ? members[index] : nullptr;
}

void Population::Step(Bytes& bytes, STEPheader* object) {
  switch (bytes.Below(16)) {
    case 0:
    case 1:
    case 2:
    case 3:
      Construct(bytes);
      break;
    case 4:
    case 5:
      Insert(bytes, object);
      break;
    case 6:
      Remove(bytes, object);
      break;
    case 7:
      Destroy(object);
      break;
    case 8:
      Clear(bytes);
      break;
    case 9:
      Retype(bytes, object);
      break;
    case 10:
      Index(bytes);
      break;
    case 11:
      NextId(bytes);
      break;
    case 12:
      Ask(bytes, object);
      break;
    default:
      Query(bytes);
  }
  Compare();
}

// ---- changes

// In a model that is named, in the current one, or in none.
void Population::Construct(Bytes& bytes) {
  const int list = bytes.Below(kModels + 1);
  const bool named = bytes.Below(2) != 0;
  STEPmodel* model = list == kLoose ? nullptr : models_[list];
  CurrentModel(named ? nullptr : model);
  auto* object = new STEPheader(named ? model : nullptr);
  CurrentModel(&head_);
  STEPRT_CHECK(object->Model() == model && object->Type() == -1 && *object->Id() == '\0');
  members_[list].push_back(object);
}

void Population::Insert(Bytes& bytes, STEPheader* object) {
  const int list = bytes.Below(kModels);
  models_[list]->Insert(object);
  if (!object) return;
  Drop(object);
  members_[list].push_back(object);
}

// Perhaps from a model that does not have it; one that is removed keeps its model.
void Population::Remove(Bytes& bytes, STEPheader* object) {
  const int list = bytes.Below(kModels);
  models_[list]->RmInst(object);
  Members& members = members_[list];
  const auto place = std::find(members.begin(), members.end(), object);
  if (place == members.end()) return;
  members.erase(place);
  members_[kLoose].push_back(object);
}

void Population::Destroy(STEPheader* object) {
  if (!object) return;
  aggregates_.Forget(object);
  Drop(object);
  delete object;
}

void Population::Clear(Bytes& bytes) {
  const int list = bytes.Below(kModels);
  if (bytes.Below(8) > 0) return;
  for (STEPheader* object : members_[list]) aggregates_.Forget(object);
  members_[list].clear();
  models_[list]->Delete();
  lastIds_[list] = 0;
}

// The copy is on no list, and its end takes nothing off one.
void Population::Retype(Bytes& bytes, STEPheader* object) {
  if (!object) return;
  object->Type(AnyType(bytes));
  const std::string id = bytes.Text();
  object->Id(id.c_str());
  STEPRT_CHECK(object->Id() == id.substr(0, 63));
  STEPheader copy(*object);
  STEPRT_CHECK(copy.Type() == object->Type() && copy.Model() == object->Model());
}

void Population::Index(Bytes& bytes) {
  if (bytes.Below(2) == 0) {
    head_.RemoveHash();
    STEPRT_CHECK(!Schema()->index);
  } else {
    models_[bytes.Below(kModels)]->PrepareHash();
    STEPRT_CHECK(Schema()->index);
  }
}

void Population::NextId(Bytes& bytes) {
  const int list = bytes.Below(kModels);
  if (bytes.Below(8) == 0) lastIds_[list] = models_[list]->lastId = kLastId - 1;
  lastIds_[list] = NextIdAfter(lastIds_[list]);
  STEPRT_CHECK(models_[list]->GetEntId() == lastIds_[list]);
  const std::string prefix = bytes.Text();
  lastIds_[0] = NextIdAfter(lastIds_[0]);
  STEPRT_CHECK(AutoId(0, prefix.c_str()) == prefix.substr(0, 63) + std::to_string(lastIds_[0]));
}

// ---- the books

void Population::Drop(STEPheader* object) {
  for (Members& members : members_) members.erase(std::remove(members.begin(), members.end(), object), members.end());
}

void Population::Compare() {
  for (int i = 0; i < kModels; ++i) {
    STEPheader** link = &models_[i]->first;
    for (STEPheader* member : members_[i]) {
      STEPRT_CHECK(*link == member && member->Model() == models_[i]);
      link = member->pNextHead();
    }
    STEPRT_CHECK(!*link && models_[i]->tail == link);
    STEPRT_CHECK((models_[i]->IsEmpty() != 0) == members_[i].empty());
  }
}

}  // namespace fuzz
