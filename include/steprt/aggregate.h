// Aggregates: the values of LIST, SET, BAG and ARRAY attributes.
//
//   for (STEPlist* node = wall->openings->head; node; node = node->next) Visit(node->value.object);
//
// An aggregate is a chain of untagged nodes; the attribute's own readers and writers know which arm is in use. It owns
// its nodes and nothing beyond them. Whoever made the aggregate releases it:
//
//   DeleteSTEPlist(&aggr->head);   // texts of a text list first: delete[] node->value.text
//   delete aggr;
//
// Aggregates and nodes come from new and go back by delete, texts from new char[] and by delete[]. A null aggregate is
// not tested for.
#ifndef STEPRT_AGGREGATE_H
#define STEPRT_AGGREGATE_H

#include <steprt/export.h>
#include <steprt/fwd.h>

struct STEPlist {
  STEPlist* next = nullptr;  // null at the end
  union {
    STEPheader* object;  // reference lists; null for an omitted member
    double real;         // number lists, integers too
    int integer;         // enumeration lists: the index of the enumerator
    char* text;          // text lists: a text from new char[], owned by the node's user
  } value = {nullptr};
};

// The operations on instances are for reference lists only. Each walks from the head and stops at the first
// occurrence. A node that cannot be allocated leaves the list as it was: Prepend and Append then do nothing, the two
// inserts give false.
class STEPRT_API STEPaggr {
 public:
  STEPlist* head = nullptr;

  void Prepend(STEPheader* object);
  void Prepend(double real);

  // Walks the whole list. To build a long one, keep the last link and make the nodes yourself.
  void Append(STEPheader* object);
  void Append(double real);

  // Puts `object` in front of, or behind, the first node that holds `member`. False, without a change, if none does.
  bool InsertBefore(STEPheader* member, STEPheader* object);
  bool InsertAfter(STEPheader* member, STEPheader* object);

  // Removes the first node that holds `object`, or the node at `index`, counted from 0. The instance is not destroyed.
  // False, without a change, if there is no such node.
  bool Delete(STEPheader* object);
  bool Delete(int index);

  int GetMemberCount();              // nodes, null members included; a walk
  int IsMember(STEPheader* object);  // index from 0 of the first node that holds it; -1 if none does

  // The first member of exactly this type, subtypes not counted; null if none. Reference lists only.
  STEPheader* FindFirst(int type);

  // The member behind the first node that holds `object`; null behind the last and for a stranger.
  STEPheader* Successor(STEPheader* object);

  // The member in front of the first node that holds `object`; null in front of the first node. A stranger, null
  // included, gives the last member: so Predecessor(nullptr) is the way to it in a list without null members.
  STEPheader* Predecessor(STEPheader* object);
};

// Releases every node of the chain and stores null in *head. No instance and no text is released. A null address does
// nothing.
STEPRT_API void DeleteSTEPlist(STEPlist** head);

#endif
