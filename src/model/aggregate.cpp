#include "steprt/aggregate.h"

#include "steprt/instance.h"
#include "support/memory.h"

namespace {

using steprt::MakeOrNull;

// The link whose node `matches`, or the link that ends the list.
template <typename Predicate>
STEPlist** FindLink(STEPaggr& aggr, Predicate matches) {
  STEPlist** link = &aggr.head;
  while (*link && !matches(**link)) link = &(*link)->next;
  return link;
}

STEPlist** FindMember(STEPaggr& aggr, const STEPheader* object) {
  return FindLink(aggr, [=](const STEPlist& node) { return node.value.object == object; });
}

STEPlist** FindEnd(STEPaggr& aggr) {
  return FindLink(aggr, [](const STEPlist&) { return false; });
}

STEPlist* InsertAt(STEPlist** link) {
  auto* node = MakeOrNull<STEPlist>();
  if (!node) return nullptr;
  node->next = *link;
  *link = node;
  return node;
}

bool InsertObjectAt(STEPlist** link, STEPheader* object) {
  STEPlist* node = InsertAt(link);
  if (node) node->value.object = object;
  return node != nullptr;
}

void InsertRealAt(STEPlist** link, double real) {
  STEPlist* node = InsertAt(link);
  if (node) node->value.real = real;
}

bool RemoveAt(STEPlist** link) {
  STEPlist* node = *link;
  if (!node) return false;
  *link = node->next;
  delete node;
  return true;
}

}  // namespace

void STEPaggr::Prepend(STEPheader* object) { InsertObjectAt(&head, object); }

void STEPaggr::Prepend(double real) { InsertRealAt(&head, real); }

void STEPaggr::Append(STEPheader* object) { InsertObjectAt(FindEnd(*this), object); }

void STEPaggr::Append(double real) { InsertRealAt(FindEnd(*this), real); }

bool STEPaggr::InsertBefore(STEPheader* member, STEPheader* object) {
  STEPlist** link = FindMember(*this, member);
  return *link && InsertObjectAt(link, object);
}

bool STEPaggr::InsertAfter(STEPheader* member, STEPheader* object) {
  STEPlist* node = *FindMember(*this, member);
  return node && InsertObjectAt(&node->next, object);
}

bool STEPaggr::Delete(STEPheader* object) { return RemoveAt(FindMember(*this, object)); }

bool STEPaggr::Delete(int index) {
  if (index < 0) return false;
  return RemoveAt(FindLink(*this, [&](const STEPlist&) { return index-- == 0; }));
}

int STEPaggr::GetMemberCount() {
  int count = 0;
  for (const STEPlist* node = head; node; node = node->next) ++count;
  return count;
}

int STEPaggr::IsMember(STEPheader* object) {
  int index = 0;
  for (const STEPlist* node = head; node; node = node->next, ++index) {
    if (node->value.object == object) return index;
  }
  return -1;
}

STEPheader* STEPaggr::FindFirst(int type) {
  const STEPlist* node =
      *FindLink(*this, [=](const STEPlist& each) { return each.value.object && each.value.object->type == type; });
  return node ? node->value.object : nullptr;
}

STEPheader* STEPaggr::Successor(STEPheader* object) {
  const STEPlist* node = *FindMember(*this, object);
  return node && node->next ? node->next->value.object : nullptr;
}

// If no node holds the object, the answer is the last member, since the walk has passed them all. That is intended.
STEPheader* STEPaggr::Predecessor(STEPheader* object) {
  const STEPlist* before = nullptr;
  for (const STEPlist* node = head; node && node->value.object != object; node = node->next) before = node;
  return before ? before->value.object : nullptr;
}

void DeleteSTEPlist(STEPlist** head) {
  if (!head) return;
  STEPlist* node = *head;
  while (node) {
    STEPlist* next = node->next;
    delete node;
    node = next;
  }
  *head = nullptr;
}
