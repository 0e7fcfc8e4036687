#include "edit_aggregates.h"

#include <steprt/instance.h>

#include <algorithm>
#include <cstring>

#include "check.h"
#include "client.h"

namespace fuzz {
namespace {

// The same place, for an iterator.
template <typename Member>
auto At(std::vector<Member>& members, std::size_t index) {
  return members.begin() + static_cast<std::ptrdiff_t>(index);
}

// Deletes by an index that may lie outside.
template <typename Member>
void DeleteAt(STEPaggr& aggr, std::vector<Member>& members, int index) {
  const bool isThere = index >= 0 && index < static_cast<int>(members.size());
  STEPRT_CHECK(aggr.Delete(index) == isThere);
  if (isThere) members.erase(At(members, static_cast<std::size_t>(index)));
}

}  // namespace

// ---- references

void References::Edit(Bytes& bytes, STEPheader* object, STEPheader* other) {
  const std::size_t index = Find(other);
  const bool isThere = index < members_.size();
  switch (bytes.Below(7)) {
    case 0:
      aggr_.Prepend(object);
      members_.insert(members_.begin(), object);
      break;
    case 1:
      aggr_.Append(object);
      members_.push_back(object);
      break;
    case 2:
      STEPRT_CHECK(aggr_.InsertBefore(other, object) == isThere);
      if (isThere) members_.insert(At(members_, index), object);
      break;
    case 3:
      STEPRT_CHECK(aggr_.InsertAfter(other, object) == isThere);
      if (isThere) members_.insert(At(members_, index + 1), object);
      break;
    case 4:
      STEPRT_CHECK(aggr_.Delete(other) == isThere);
      if (isThere) members_.erase(At(members_, index));
      break;
    case 5:
      DeleteAt(aggr_, members_, bytes.Any<std::int8_t>());
      break;
    default:
      if (bytes.Below(4) > 0) return;
      DeleteSTEPlist(&aggr_.head);
      members_.clear();
  }
  Compare();
}

void References::Ask(Bytes& bytes, STEPheader* object) {
  const std::size_t index = Find(object);
  const bool isThere = index < members_.size();
  STEPRT_CHECK(aggr_.GetMemberCount() == static_cast<int>(members_.size()));
  STEPRT_CHECK(aggr_.IsMember(object) == (isThere ? static_cast<int>(index) : -1));
  STEPRT_CHECK(aggr_.Successor(object) == (isThere && index + 1 < members_.size() ? members_[index + 1] : nullptr));
  STEPRT_CHECK(aggr_.Predecessor(object) == (index > 0 ? members_[index - 1] : nullptr));
  const int type = bytes.Below(kStray + 2) - 1;
  const auto first = std::find_if(members_.begin(), members_.end(),
                                  [=](const STEPheader* member) { return member && member->type == type; });
  STEPRT_CHECK(aggr_.FindFirst(type) == (first == members_.end() ? nullptr : *first));
}

void References::Forget(STEPheader* object) {
  while (aggr_.Delete(object)) {
  }
  members_.erase(std::remove(members_.begin(), members_.end(), object), members_.end());
  Compare();
}

std::size_t References::Find(STEPheader* object) const {
  return static_cast<std::size_t>(std::find(members_.begin(), members_.end(), object) - members_.begin());
}

void References::Compare() const {
  const STEPlist* node = aggr_.head;
  for (const STEPheader* member : members_) {
    STEPRT_CHECK(node && node->value.object == member);
    node = node->next;
  }
  STEPRT_CHECK(!node);
}

// ---- numbers

void Reals::Edit(Bytes& bytes) {
  const int operation = bytes.Below(5);
  if (operation < 2) {
    const double real = bytes.Any<double>();
    aggr_.Prepend(real);
    members_.insert(members_.begin(), real);
  } else if (operation < 4) {
    const double real = bytes.Any<double>();
    aggr_.Append(real);
    members_.push_back(real);
  } else {
    DeleteAt(aggr_, members_, bytes.Any<std::int8_t>());
  }
  STEPRT_CHECK(aggr_.GetMemberCount() == static_cast<int>(members_.size()));
  Compare();
}

// Bit by bit: a member may be no number.
void Reals::Compare() const {
  const STEPlist* node = aggr_.head;
  for (const double& member : members_) {
    STEPRT_CHECK(node && std::memcmp(&node->value.real, &member, sizeof member) == 0);
    node = node->next;
  }
  STEPRT_CHECK(!node);
}

// ---- all of them

void Aggregates::Step(Bytes& bytes, STEPheader* object, STEPheader* other) {
  const int operation = bytes.Below(4);
  if (operation == 0) return reals_.Edit(bytes);
  References& references = Pick(bytes);
  if (operation == 1) return references.Ask(bytes, object);
  references.Edit(bytes, object, other);
}

void Aggregates::Forget(STEPheader* object) {
  for (References& references : references_) references.Forget(object);
}

}  // namespace fuzz
