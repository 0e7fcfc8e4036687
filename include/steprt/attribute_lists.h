/// @file
/// Lists as attributes: List<T>, for T any attribute type, lists included.
///
///     for (Door& door : wall.Doors) Visit(door);          // List<Ref<Door>>: the members that are doors
///     for (double height : wall.Heights) Add(height);     // List<Real>
///     for (List<Real>& row : grid.Rows) Visit(row);       // any other list: its elements
///     wall.Doors.Add(&door);
///
/// A list owns its elements, and an element stays in its place until the list is cleared. An omitted list (`$`) and an
/// empty one are different. Lists of reals and of references are kept and transferred as STEPaggr, with the rules of
/// read.h: such a list ends, with one report, at an element of another kind, and the rest of it is passed over. One
/// thread at a time uses the library.
#ifndef STEPRT_ATTRIBUTE_LISTS_H
#define STEPRT_ATTRIBUTE_LISTS_H

#include <steprt/attributes.h>
#include <steprt/references.h>

#include <utility>

namespace steprt {

template <class T>
class List;

namespace detail {

/// A list kept as STEPaggr. `Node` nodes carry one kind of value.
class Aggregate : public Presence {
 public:
  Aggregate() = default;
  ~Aggregate() { DeleteSTEPlist(&aggregate_.head); }

  void Omit() { Mark(STEP_OMITTED); }
  void Derive() { Mark(STEP_DERIVED); }
  void Clear() { Mark(STEP_END); }  ///< an empty list, which is present

  /// The count of elements; a walk. In a list of references it includes those that iteration passes over.
  int Size() const {
    int size = 0;
    for (const STEPlist* node = aggregate_.head; node; node = node->next) ++size;
    return size;
  }
  /// The first node, for what this class does not offer; null if there is none.
  const STEPlist* Head() const { return aggregate_.head; }

 protected:
  void Mark(STEPitem mark) {
    DeleteSTEPlist(&aggregate_.head);
    last_ = nullptr;
    mark_ = mark;
  }
  // Prepares a read. Returns false if the value has been read: a `$`, a `*`, or no list.
  bool BeginRead(STEPtransfer* t, const char* name, const char* message) {
    Clear();
    const STEPitem kind = BeginValue(t, name);
    if (kind == STEP_OMITTED) return false;
    if (kind == STEP_LIST || !rSTEPrefuse(t, name, message)) return true;
    Omit();
    return false;
  }
  void RemoveNode(const STEPheader* object) {
    last_ = nullptr;
    aggregate_.Delete(const_cast<STEPheader*>(object));
  }
  // Appends in constant time, but for the first time after a read.
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

// The lists that have a form of their own in XML: texts are 'a';'b' there, integers 1;2. Other lists are clear text in
// their element.
template <class AnyList>
void ReadElementList(AnyList& /*list*/, STEPtransfer* /*t*/, const char* /*name*/) {}
template <class AnyList>
bool WriteElementList(const AnyList& /*list*/, STEPtransfer* /*t*/, const char* /*name*/) {
  return false;
}
void ReadElementList(List<Text>& list, STEPtransfer* t, const char* name);
bool WriteElementList(const List<Text>& list, STEPtransfer* t, const char* name);
void ReadElementList(List<Integer>& list, STEPtransfer* t, const char* name);
bool WriteElementList(const List<Integer>& list, STEPtransfer* t, const char* name);

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
    const STEPitem kind = BeginValue(t, name);
    if (kind == STEP_OMITTED) return;
    if (kind != STEP_LIST) {
      if (rSTEPrefuse(t, name, "Missing list")) return Omit();
      return detail::ReadElementList(*this, t, name);
    }
    if (!rSTEPopen(t, name)) return;
    while (rSTEPkind(t, nullptr) != STEP_END) Add().Read(t, nullptr);
    rSTEPclose(t);
  }
  void Write(STEPtransfer* t, const char* name) const {
    if (WriteMark(t, name) || (!wSTEPisstandard(t) && detail::WriteElementList(*this, t, name))) return;
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
  int WrongReferences() const {
    int wrong = 0;
    for (const Node* node = first_; node; node = node->next) wrong += node->value.WrongReferences();
    return wrong;
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
    if (BeginRead(t, name, "Missing primitive in list")) xrSTEPaggrPrim(t, name, &out);
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

namespace detail {

/// What lists of references to all classes share.
class ReferenceList : public Aggregate {
 public:
  /// @cond
  void Write(STEPtransfer* t, const char* name) const {
    if (!WriteMark(t, name)) xwSTEPaggr(t, name, Address());
  }
  bool Equals(const ReferenceList& other, const SameInstance& same) const {
    return EqualNodes(other, [&](const STEPlist& a, const STEPlist& b) {
      if (!a.value.object || !b.value.object) return a.value.object == b.value.object;
      return same(a.value.object, b.value.object);
    });
  }
  void Print(std::string& out) const {
    PrintNodes(out, [&](const STEPlist& node) { PrintReference(out, node.value.object); });
  }
  /// @endcond
};

}  // namespace detail

/// A list of references. Iteration passes over omitted members and over instances of another class than T; Head leads
/// to all of them.
template <class T>
class List<Ref<T>> : public detail::ReferenceList {
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
        if ((member_ = detail::As<T>(node_->value.object))) return;
      }
    }
    const STEPlist* node_;
    T* member_ = nullptr;
  };
  Iterator begin() const { return Iterator(aggregate_.head); }  ///< the first element
  Iterator end() const { return Iterator(nullptr); }            ///< the end
  void Remove(T* object) { RemoveNode(object); }            ///< the first member that is this instance, if there is one
  void Add(T* object) { AddNode().value.object = object; }  ///< appends; null is written as `$`

  /// @cond
  int WrongReferences() const {
    int wrong = 0;
    for (const STEPlist* node = aggregate_.head; node; node = node->next) {
      if (node->value.object && !detail::IsIncluded(node->value.object, T::Includes)) ++wrong;
    }
    return wrong;
  }
  void Read(STEPtransfer* t, const char* name) {
    STEPaggr* out = &aggregate_;
    if (BeginRead(t, name, "Missing reference")) xrSTEPaggr(t, name, &out, detail::ExpectedType<T>(), true);
  }
  /// @endcond
};

namespace detail {

/// An aggregate for the length of a call.
struct TransientAggregate {
  STEPaggr list;
  STEPlist** tail = &list.head;
  STEPlist& Add() {
    *tail = new STEPlist;
    STEPlist& node = **tail;
    tail = &node.next;
    return node;
  }
  ~TransientAggregate() { DeleteSTEPlist(&list.head); }
};

inline void ReadElementList(List<Text>& list, STEPtransfer* t, const char* name) {
  TransientAggregate read;
  STEPaggr* out = &read.list;
  xrSTEPtextAggr(t, name, &out);
  for (STEPlist* node = read.list.head; node; node = node->next) {
    list.Add() = static_cast<const char*>(node->value.text);
    delete[] std::exchange(node->value.text, nullptr);
  }
}

// The XML form of a list has no place for a text that is not there, nor for an apostrophe.
inline bool WriteElementList(const List<Text>& list, STEPtransfer* t, const char* name) {
  TransientAggregate written;
  for (const Text& text : list) {
    if (!text.IsPresent() || std::strchr(text.Get(), '\'')) return false;
    written.Add().value.text = const_cast<char*>(text.Get());
  }
  xwSTEPtextAggr(t, name, &written.list);
  return true;
}

inline void ReadElementList(List<Integer>& list, STEPtransfer* t, const char* name) {
  TransientAggregate read;
  STEPaggr* out = &read.list;
  xrSTEPaggrPrim(t, name, &out);
  for (const STEPlist* node = read.list.head; node; node = node->next) list.Add() = static_cast<int>(node->value.real);
}

// Numbers of a list are written with six digits.
inline bool WriteElementList(const List<Integer>& list, STEPtransfer* t, const char* name) {
  constexpr int kSixDigits = 999999;
  TransientAggregate written;
  for (const Integer& integer : list) {
    if (!integer.IsPresent() || integer.Get() > kSixDigits || integer.Get() < -kSixDigits) return false;
    written.Add().value.real = integer.Get();
  }
  xwSTEPaggrPrim(t, name, &written.list);
  return true;
}

}  // namespace detail
}  // namespace steprt

#endif
