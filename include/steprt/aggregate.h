/// @file
/// Aggregates: the values of LIST, SET, BAG and ARRAY attributes.
///
///     for (STEPlist* node = wall->doors->head; node; node = node->next) Visit(node->value.object);
///
/// An aggregate is a chain of nodes. A node has no tag: only the attribute's own read and write functions know which
/// member of the union is in use. The aggregate owns its nodes, but neither the instances nor the texts in them.
/// Whoever created an aggregate releases it; an aggregate that a list reader created belongs to the client:
///
///     DeleteSTEPlist(&aggr->head);   // in a list of texts, delete[] each node->value.text first
///     delete aggr;
///
/// Aggregates and nodes come from `new`, texts from `new char[]`. Never call an operation on a null aggregate: the
/// library does not check. One thread at a time uses the library.
#ifndef STEPRT_AGGREGATE_H
#define STEPRT_AGGREGATE_H

#include <steprt/export.h>
#include <steprt/fwd.h>

/// A node of an aggregate.
struct STEPlist {
  STEPlist* next = nullptr;  ///< The next node; null at the end.
  union {
    STEPheader* object;  ///< In a list of references; null for an omitted member.
    double real;         ///< In a list of numbers, integers too.
    int integer;         ///< In a list of enumerators: the position of the enumerator.
    char* text;          ///< In a list of texts: from `new char[]`, released by the client.
  } value = {nullptr};   ///< The member.
};

/// The head of a chain of nodes.
///
/// Operations that take or return an instance are for lists of references only. Each of them searches from the head and
/// uses the first node that matches. When memory for a node runs out, the list does not change: Prepend and Append do
/// nothing then, InsertBefore and InsertAfter return false.
class STEPRT_API STEPaggr {
 public:
  STEPlist* head = nullptr;  ///< The first node; null for an empty list.

  void Prepend(STEPheader* object);  ///< Adds a node at the head.
  void Prepend(double real);         ///< The same in a list of numbers. Write 0.0: a plain 0 is ambiguous.

  /// Adds a node at the end. Each call walks the whole list: to build a long list, create the nodes yourself and keep a
  /// pointer to the last `next`.
  void Append(STEPheader* object);
  void Append(double real);  ///< The same in a list of numbers.

  /// Adds `object` before the first node that holds `member`. Returns false, without a change, if no node holds it.
  bool InsertBefore(STEPheader* member, STEPheader* object);
  /// Adds `object` after the first node that holds `member`. Returns false, without a change, if no node holds it.
  bool InsertAfter(STEPheader* member, STEPheader* object);

  /// Releases the first node that holds `object`; the instance remains. Returns false if no node holds it.
  bool Delete(STEPheader* object);
  /// Releases the node at `index`, counted from 0; neither an instance nor a text in it is released. Returns false if
  /// there is no such node.
  bool Delete(int index);

  int GetMemberCount();              ///< Counts the nodes by a walk, null members too.
  int IsMember(STEPheader* object);  ///< Returns the position of `object`, counted from 0, or -1 if no node holds it.

  /// Returns the first member whose type is exactly `type`, not a subtype. Returns null if there is none.
  STEPheader* FindFirst(int type);

  /// Returns the member after the first node that holds `object`. Returns null if that node is the last, or if no node
  /// holds `object`.
  STEPheader* Successor(STEPheader* object);

  /// Returns the member before the first node that holds `object`. Returns null if that node is the first. If no node
  /// holds `object`, it returns the last member: Predecessor(nullptr) finds the last one of a list without null
  /// members.
  STEPheader* Predecessor(STEPheader* object);
};

/// Releases every node of the chain and sets `*head` to null. Releases no instance and no text. A null `head` is
/// allowed.
STEPRT_API void DeleteSTEPlist(STEPlist** head);

#endif
