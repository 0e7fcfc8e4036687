/// Lists as attributes: List<T>, for T any attribute type, lists included.
///
///   for (Door& door : wall.Doors) Visit(door);          // List<Ref<Door>>: the members that are doors
///   for (double height : wall.Heights) Add(height);     // List<Real>
///   for (List<Real>& row : grid.Rows) Visit(row);       // any other list: its elements
///   wall.Doors.Add(door);
///
/// A list owns its elements, and an element stays in its place until the list is cleared. An omitted list (`$`) and an
/// empty one are different. Lists of reals and of references are kept and transferred as STEPaggr.
#ifndef STEPRT_ATTRIBUTE_LISTS_H
#define STEPRT_ATTRIBUTE_LISTS_H

#include <steprt/attributes.h>

#include <utility>

namespace steprt {

namespace detail {

/// A list kept as STEPaggr. `Node` nodes carry one kind of value.
class Aggregate : public Presence {
 public:
  Aggregate() = default;
  ~Aggregate() { DeleteSTEPlist(&aggregate_.head); }

  void Omit() { Mark(STEP_OMITTED); }
  void Derive() { Mark(STEP_DERIVED); }
  void Clear() { Mark(STEP_END); }  ///< an empty list, which is present

  int Size() const {
    int size = 0;
    for (const STEPlist* node = aggregate_.head; node; node = node->next) ++size;
    return size;
  }
  /// The nodes, for what this class does not offer; an added node must come from new.
  STEPaggr& Nodes() { return aggregate_; }

 protected:
  void Mark(STEPitem mark) {
    DeleteSTEPlist(&aggregate_.head);
    last_ = nullptr;
    mark_ = mark;
  }
  // Ready to be read into. Returns false if the value has been read, because it is a `$` or a `*`.
  bool BeginRead(STEPtransfer* t, const char* name) {
    Mark(STEP_END);
    return !ReadMark(t, name);
  }
  // Appends in constant time, unless the nodes were changed by others since.
  STEPlist& AddNode() {
    auto* node = new STEPlist;
    STEPlist** link = last_ ? &last_->next : &aggregate_.head;
    while (*link) link = &(*link)->next;
    *link = last_ = node;
    mark_ = STEP_END;
    return *node;
  }
  template <class Same>
  bool EqualNodes(const Aggregate& other, Same same) const {
    if (mark_ != other.mark_) return false;
    const STEPlist* a = aggregate_.head;
    const STEPlist* b = other.aggregate_.head;
    for (; a && b && same(*a, *b); a = a->next) b = b->next;
    return !a && !b;
  }
  template <class PrintNode>
  void PrintNodes(std::string& out, PrintNode print) const {
    if (PrintMark(out)) return;
    out += '(';
    for (const STEPlist* node = aggregate_.head; node; node = node->next) {
      print(*node);
      if (node->next) out += ',';
    }
    out += ')';
  }
  STEPaggr* Address() const { return const_cast<STEPaggr*>(&aggregate_); }

  STEPaggr aggregate_;

 private:
  STEPlist* last_ = nullptr;
};

}  // namespace detail

/// A list of any attribute type.
template <class T>
class List : public detail::Presence {
  struct Node {
    Node* next = nullptr;
    T value;
  };

 public:
  List() = default;
  ~List() { Release(); }

  class Iterator {
   public:
    explicit Iterator(Node* node) : node_(node) {}
    T& operator*() const { return node_->value; }
    Iterator& operator++() {
      node_ = node_->next;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return node_ != other.node_; }

   private:
    Node* node_;
  };
  Iterator begin() const { return Iterator(first_); }  ///< the first element
  Iterator end() const { return Iterator(nullptr); }   ///< the end

  /// The count of elements; a walk.
  int Size() const {
    int size = 0;
    for (const Node* node = first_; node; node = node->next) ++size;
    return size;
  }
  /// Appends an element and returns it.
  T& Add() {
    Node* node = new Node;
    *tail_ = node;
    tail_ = &node->next;
    mark_ = STEP_END;
    return node->value;
  }
  void Omit() { Reset(STEP_OMITTED); }    ///< `$`, without elements
  void Derive() { Reset(STEP_DERIVED); }  ///< `*`, without elements
  void Clear() { Reset(STEP_END); }       ///< an empty list, which is present

  /// @cond
  void Read(STEPtransfer* t, const char* name) {
    Clear();
    if (ReadMark(t, name)) return;
    if (rSTEPkind(t, name) != STEP_LIST) return Refuse(t, name);
    if (!rSTEPopen(t, name)) return;
    while (rSTEPkind(t, nullptr) != STEP_END) Add().Read(t, nullptr);
    rSTEPclose(t);
  }
  void Write(STEPtransfer* t, const char* name) const {
    if (WriteMark(t, name)) return;
    wSTEPopen(t, name, nullptr);
    for (const Node* node = first_; node; node = node->next) node->value.Write(t, nullptr);
    wSTEPclose(t);
  }
  bool Equals(const List& other, const SameInstance& same) const {
    const Node* a = first_;
    const Node* b = other.first_;
    for (; a && b && a->value.Equals(b->value, same); a = a->next) b = b->next;
    return mark_ == other.mark_ && !a && !b;
  }
  void Print(std::string& out) const {
    if (PrintMark(out)) return;
    out += '(';
    for (const Node* node = first_; node; node = node->next) {
      node->value.Print(out);
      if (node->next) out += ',';
    }
    out += ')';
  }
  /// @endcond

 private:
  void Release() {
    while (first_) delete std::exchange(first_, first_->next);
  }
  void Reset(STEPitem mark) {
    Release();
    tail_ = &first_;
    mark_ = mark;
  }
  // Reports a value that is no list, and passes over it.
  void Refuse(STEPtransfer* t, const char* name) {
    const bool isTyped = rSTEPkind(t, name) == STEP_TYPED;
    xrSTEPaggrPrim(t, name, nullptr);
    if (isTyped) rSTEPskip(t, name);
  }

  Node* first_ = nullptr;
  Node** tail_ = &first_;
};

/// A list of reals.
template <>
class List<Real> : public detail::Aggregate {
 public:
  class Iterator {
   public:
    explicit Iterator(const STEPlist* node) : node_(node) {}
    double operator*() const { return node_->value.real; }
    Iterator& operator++() {
      node_ = node_->next;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return node_ != other.node_; }

   private:
    const STEPlist* node_;
  };
  Iterator begin() const { return Iterator(aggregate_.head); }  ///< the first element
  Iterator end() const { return Iterator(nullptr); }            ///< the end
  void Add(double real) { AddNode().value.real = real; }        ///< appends

  /// @cond
  void Read(STEPtransfer* t, const char* name) {
    STEPaggr* out = &aggregate_;
    if (BeginRead(t, name)) xrSTEPaggrPrim(t, name, &out);
  }
  void Write(STEPtransfer* t, const char* name) const {
    if (!WriteMark(t, name)) xwSTEPaggrPrim(t, name, Address());
  }
  bool Equals(const List& other, const SameInstance& /*same*/) const {
    return EqualNodes(other, [](const STEPlist& a, const STEPlist& b) { return a.value.real == b.value.real; });
  }
  void Print(std::string& out) const {
    PrintNodes(out, [&](const STEPlist& node) { detail::PrintNumber(out, node.value.real); });
  }
  /// @endcond
};

/// A list of references. Iteration passes over omitted members and over instances of another class than T; Nodes has
/// all of them.
template <class T>
class List<Ref<T>> : public detail::Aggregate {
 public:
  class Iterator {
   public:
    explicit Iterator(const STEPlist* node) : node_(node) { Settle(); }
    T& operator*() const { return *member_; }
    Iterator& operator++() {
      node_ = node_->next;
      Settle();
      return *this;
    }
    bool operator!=(const Iterator& other) const { return node_ != other.node_; }

   private:
    void Settle() {
      for (member_ = nullptr; node_; node_ = node_->next) {
        if ((member_ = dynamic_cast<T*>(node_->value.object))) return;
      }
    }
    const STEPlist* node_;
    T* member_ = nullptr;
  };
  Iterator begin() const { return Iterator(aggregate_.head); }  ///< the first element
  Iterator end() const { return Iterator(nullptr); }            ///< the end
  void Add(T* object) { AddNode().value.object = object; }      ///< appends; null is written as `$`

  /// @cond
  void Read(STEPtransfer* t, const char* name) {
    STEPaggr* out = &aggregate_;
    if (BeginRead(t, name)) xrSTEPaggr(t, name, &out, T::kType, true);
  }
  void Write(STEPtransfer* t, const char* name) const {
    if (!WriteMark(t, name)) xwSTEPaggr(t, name, Address());
  }
  bool Equals(const List& other, const SameInstance& same) const {
    return EqualNodes(other, [&](const STEPlist& a, const STEPlist& b) {
      if (!a.value.object || !b.value.object) return a.value.object == b.value.object;
      return same(a.value.object, b.value.object);
    });
  }
  void Print(std::string& out) const {
    PrintNodes(out, [&](const STEPlist& node) { detail::PrintReference(out, node.value.object); });
  }
  /// @endcond
};

}  // namespace steprt

#endif
