// Aggregates under edit, each beside a vector: some of references and one of numbers.
#ifndef STEPRT_FUZZ_EDIT_AGGREGATES_H
#define STEPRT_FUZZ_EDIT_AGGREGATES_H

#include <gtest/gtest.h>
#include <steprt/aggregate.h>
#include <steprt/instance.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "bytes.h"

namespace fuzz {

using Members = std::vector<STEPheader*>;

// The first one of that type, or null.
inline STEPheader* FirstOf(const Members& members, int type) {
  for (STEPheader* each : members) {
    if (each && each->type == type) return each;
  }
  return nullptr;
}

// What the two sorts of aggregates share. Members are compared bit by bit, since a number may be none.
template <typename Member>
class Sequence {
 public:
  ~Sequence() { DeleteSTEPlist(&aggr.head); }

  void Prepend(Member member) {
    aggr.Prepend(member);
    members.insert(members.begin(), member);
  }

  void Append(Member member) {
    aggr.Append(member);
    members.push_back(member);
  }

  void DeleteAt(int index) {
    const bool isThere = index >= 0 && index < static_cast<int>(members.size());
    EXPECT_EQ(aggr.Delete(index), isThere);
    if (isThere) members.erase(members.begin() + index);
  }

  void Compare() {
    EXPECT_EQ(aggr.GetMemberCount(), static_cast<int>(members.size()));
    const STEPlist* node = aggr.head;
    for (const Member& member : members) {
      ASSERT_NE(node, nullptr);
      EXPECT_EQ(std::memcmp(&node->value, &member, sizeof member), 0);
      node = node->next;
    }
    EXPECT_EQ(node, nullptr);
  }

  STEPaggr aggr;
  std::vector<Member> members;
};

using Reals = Sequence<double>;

// Of instances; null is a member like any other.
class References : public Sequence<STEPheader*> {
 public:
  void Edit(Bytes& bytes, STEPheader* object, STEPheader* other) {
    const auto place = std::find(members.begin(), members.end(), other);
    const bool isThere = place != members.end();
    const int action = bytes.Below(7);
    if (action == 0) Prepend(object);
    if (action == 1) Append(object);
    const bool hasActed = action == 2   ? aggr.InsertBefore(other, object)
                          : action == 3 ? aggr.InsertAfter(other, object)
                          : action == 4 ? aggr.Delete(other)
                                        : isThere;
    EXPECT_EQ(hasActed, isThere);
    if (isThere && (action == 2 || action == 3)) members.insert(place + (action - 2), object);
    if (isThere && action == 4) members.erase(place);
    if (action == 5) DeleteAt(bytes.Any<std::int8_t>());
    if (action == 6 && bytes.Below(4) == 0) {
      DeleteSTEPlist(&aggr.head);
      members.clear();
    }
    Compare();
  }

  void Ask(STEPheader* object, int type) {
    const auto place = std::find(members.begin(), members.end(), object);
    const bool isThere = place != members.end();
    EXPECT_EQ(aggr.IsMember(object), isThere ? place - members.begin() : -1);
    EXPECT_EQ(aggr.Successor(object), isThere && place + 1 != members.end() ? place[1] : nullptr);
    EXPECT_EQ(aggr.Predecessor(object), place != members.begin() ? place[-1] : nullptr);
    EXPECT_EQ(aggr.FindFirst(type), FirstOf(members, type));
  }

  void Forget(STEPheader* object) {
    while (aggr.Delete(object)) continue;
    members.erase(std::remove(members.begin(), members.end(), object), members.end());
    Compare();
  }
};

}  // namespace fuzz

#endif
