/// Attribute types: what the entity classes of record.h are made of. Each owns what it holds, and tells an omitted
/// value (`$`), a derived one (`*`) and an empty one apart, so that a record is written as it was read.
///
///   struct Door : steprt::Entity<Door, kDoor, Element> {
///     steprt::Real Width;                          // door.Width = 0.9;  door.Width.Or(1.0)
///     steprt::Enumeration<Swing> Opens;            // door.Opens = Swing::kLeft
///     steprt::Ref<Person> Maker;                   // if (Person* maker = door.Maker.Get()) ...
///     steprt::List<steprt::Ref<Hinge>> Hinges;     // for (Hinge& hinge : door.Hinges) ...
///   };
///
/// A new attribute is omitted. Attributes cannot be copied or moved: a transfer stores references into them at its end.
/// Memory that runs out is std::bad_alloc, the client's. The limits of a file's form hold: a real has six significant
/// digits, a text 256 characters.
#ifndef STEPRT_ATTRIBUTES_H
#define STEPRT_ATTRIBUTES_H

#include <steprt/aggregate.h>
#include <steprt/instance.h>
#include <steprt/items.h>
#include <steprt/read.h>
#include <steprt/write.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

namespace steprt {

/// Decides whether two references mean the same instance when two records are compared.
class SameInstance {
 public:
  virtual ~SameInstance() = default;
  /// By default the very same instance.
  virtual bool operator()(const STEPheader* a, const STEPheader* b) const { return a == b; }
};

namespace detail {

inline void PrintNumber(std::string& out, double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.17g", number);
  out += text;
}

inline void PrintReference(std::string& out, const STEPheader* object) {
  if (!object) return void(out += '$');
  out += '#';
  out += std::to_string(object->number);
}

/// What the attribute types share: whether a value is there.
class Presence {
 public:
  Presence() = default;
  Presence(const Presence&) = delete;
  Presence& operator=(const Presence&) = delete;

  bool IsPresent() const { return mark_ == STEP_END; }
  bool IsOmitted() const { return mark_ == STEP_OMITTED; }
  bool IsDerived() const { return mark_ == STEP_DERIVED; }

 protected:
  // Takes a `$` or a `*`. Returns false if a value follows.
  bool ReadMark(STEPtransfer* t, const char* name) {
    mark_ = rSTEPnull(t, name);
    return mark_ != STEP_END;
  }
  // Writes a `$` or a `*`. Returns false if there is a value to write.
  bool WriteMark(STEPtransfer* t, const char* name) const {
    if (IsPresent()) return false;
    wSTEPtoken(t, name, Mark());
    return true;
  }
  bool PrintMark(std::string& out) const {
    if (!IsPresent()) out += Mark();
    return !IsPresent();
  }
  const char* Mark() const { return IsDerived() ? "*" : "$"; }

  STEPitem mark_ = STEP_OMITTED;  // STEP_END: there is a value
};

/// A value that is one number or word. `Form` reads, writes and prints it.
template <class T, class Form>
class Scalar : public Presence {
 public:
  Scalar& operator=(T value) {
    value_ = value;
    mark_ = STEP_END;
    return *this;
  }
  void Omit() { mark_ = STEP_OMITTED; }
  void Derive() { mark_ = STEP_DERIVED; }

  T Or(T otherwise) const { return IsPresent() ? value_ : otherwise; }  ///< the value, or `otherwise` if there is none
  T Get() const { return Or(T()); }                                     ///< the value, or 0

  /// @cond
  void Read(STEPtransfer* t, const char* name) {
    if (!ReadMark(t, name) && !Form::Read(t, name, value_)) mark_ = STEP_OMITTED;
  }
  void Write(STEPtransfer* t, const char* name) const {
    if (!WriteMark(t, name)) Form::Write(t, name, value_);
  }
  bool Equals(const Scalar& other, const SameInstance& /*same*/) const {
    return mark_ == other.mark_ && (!IsPresent() || value_ == other.value_);
  }
  void Print(std::string& out) const {
    if (!PrintMark(out)) Form::Print(out, value_);
  }
  /// @endcond

 private:
  T value_ = T();
};

// A number that is none is reported and passed over, so that the attributes after it keep their places.
struct IntegerForm {
  static bool Read(STEPtransfer* t, const char* name, int& value) {
    const STEPitem kind = rSTEPkind(t, name);
    value = rSTEPint(t, name);
    if (kind != STEP_INT && kind != STEP_END) rSTEPskip(t, name);
    return kind != STEP_END;
  }
  static void Write(STEPtransfer* t, const char* name, int value) { wSTEPint(t, name, value); }
  static void Print(std::string& out, int value) { out += std::to_string(value); }
};

struct RealForm {
  static bool Read(STEPtransfer* t, const char* name, double& value) {
    const STEPitem kind = rSTEPkind(t, name);
    value = rSTEPreal(t, name);
    if (kind != STEP_REAL && kind != STEP_INT && kind != STEP_END) rSTEPskip(t, name);
    return kind != STEP_END;
  }
  static void Write(STEPtransfer* t, const char* name, double value) { wSTEPreal(t, name, value); }
  static void Print(std::string& out, double value) { PrintNumber(out, value); }
};

struct BooleanForm {
  static bool Read(STEPtransfer* t, const char* name, bool& value) {
    value = rSTEPbool(t, name);
    return true;
  }
  static void Write(STEPtransfer* t, const char* name, bool value) { wSTEPbool(t, name, value); }
  static void Print(std::string& out, bool value) { out += value ? ".T." : ".F."; }
};

struct LogicalForm {
  static bool Read(STEPtransfer* t, const char* name, int& value) {
    value = rSTEPlog(t, name);
    return true;
  }
  static void Write(STEPtransfer* t, const char* name, int value) { wSTEPlog(t, name, value); }
  static void Print(std::string& out, int value) { out += value < 0 ? ".U." : value > 0 ? ".T." : ".F."; }
};

}  // namespace detail

/// An integer. As all attributes of one value it has `=`, Get (0 if there is none), Or(otherwise), Omit, Derive,
/// IsPresent, IsOmitted and IsDerived.
using Integer = detail::Scalar<int, detail::IntegerForm>;
/// A real. An integer in the file is taken too.
using Real = detail::Scalar<double, detail::RealForm>;
/// A boolean.
using Boolean = detail::Scalar<bool, detail::BooleanForm>;
/// A logical: 1, 0, and -1 for unknown.
using Logical = detail::Scalar<int, detail::LogicalForm>;

/// The names of an enumeration in the order of its values, which count from 0. They include their dots.
struct EnumeratorNames {
  const char** names;  ///< ".LEFT." and so on
  int count;           ///< of the names
};

namespace detail {

template <class E>
struct EnumerationForm {
  static bool Read(STEPtransfer* t, const char* name, E& value) {
    const EnumeratorNames all = NamesOf(E());
    value = static_cast<E>(rSTEPenum(t, name, all.names, all.count));
    return true;
  }
  static void Write(STEPtransfer* t, const char* name, E value) {
    wSTEPenum(t, name, static_cast<int>(value), NamesOf(value).names);
  }
  static void Print(std::string& out, E value) { out += NamesOf(value).names[static_cast<int>(value)]; }
};

}  // namespace detail

/// An enumerator. A function of the enumeration's own namespace gives the names:
///
///   inline steprt::EnumeratorNames NamesOf(Swing) {
///     static const char* names[] = {".LEFT.", ".RIGHT."};
///     return {names, 2};
///   }
template <class E>
using Enumeration = detail::Scalar<E, detail::EnumerationForm<E>>;

/// A text, without its apostrophes. Encoded characters stay as they are in the file.
class Text {
 public:
  Text() = default;
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { Release(); }

  /// Takes a copy of the text.
  Text& operator=(std::string_view text) {
    char* copy = new char[text.size() + 1];
    if (!text.empty()) std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    Replace(copy);
    return *this;
  }
  /// Takes a copy of the text.
  Text& operator=(const char* text) { return *this = std::string_view(text); }
  void Omit() { Replace(nullptr); }      ///< `$`
  void Derive() { Replace(Derived()); }  ///< `*`

  bool IsPresent() const { return chars_ && !IsDerived(); }  ///< a text, which may be empty
  bool IsOmitted() const { return !chars_; }                 ///< `$`
  bool IsDerived() const { return chars_ == Derived(); }     ///< `*`

  /// The text; empty if there is none. Valid until the attribute changes.
  const char* Get() const { return IsPresent() ? chars_ : ""; }

  /// @cond
  void Read(STEPtransfer* t, const char* name) {
    const STEPitem null = rSTEPnull(t, name);
    if (null == STEP_END) {
      *this = rSTEPtext(t, name);
    } else {
      Replace(null == STEP_DERIVED ? Derived() : nullptr);
    }
  }
  void Write(STEPtransfer* t, const char* name) const {
    if (IsDerived()) return wSTEPtoken(t, name, "*");
    wSTEPtext(t, name, chars_);
  }
  bool Equals(const Text& other, const SameInstance& /*same*/) const {
    return IsPresent() == other.IsPresent() && IsDerived() == other.IsDerived() && std::strcmp(Get(), other.Get()) == 0;
  }
  void Print(std::string& out) const {
    if (!IsPresent()) return void(out += IsDerived() ? '*' : '$');
    out.append(1, '\'').append(chars_).append(1, '\'');
  }
  /// @endcond

 private:
  // Stands for a derived text, so that one pointer tells three states apart.
  static char* Derived() {
    static char mark = '\0';
    return &mark;
  }
  void Release() {
    if (!IsDerived()) delete[] chars_;
  }
  void Replace(char* chars) {
    Release();
    chars_ = chars;
  }

  char* chars_ = nullptr;
};

/// A binary, as the file has it: "1A", quotation marks included, at most 256 characters.
class Binary : public detail::Presence {
 public:
  /// Takes a copy of the token.
  Binary& operator=(std::string_view token) {
    token_ = token;
    mark_ = STEP_END;
    return *this;
  }
  void Omit() { mark_ = STEP_OMITTED; }             ///< `$`
  void Derive() { mark_ = STEP_DERIVED; }           ///< `*`
  const char* Get() const { return token_.Get(); }  ///< empty if there is none

  /// @cond
  void Read(STEPtransfer* t, const char* name) {
    if (!ReadMark(t, name)) token_ = rSTEPtoken(t, name);
  }
  void Write(STEPtransfer* t, const char* name) const {
    if (!WriteMark(t, name)) wSTEPtoken(t, name, token_.Get());
  }
  bool Equals(const Binary& other, const SameInstance& same) const {
    return mark_ == other.mark_ && (!IsPresent() || token_.Equals(other.token_, same));
  }
  void Print(std::string& out) const {
    if (!PrintMark(out)) out += token_.Get();
  }
  /// @endcond

 private:
  Text token_;
};

namespace detail {

/// A reference to an instance of any class.
class Reference {
 public:
  Reference() = default;
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;

  void Omit() { object_ = nullptr; }
  void Derive() { object_ = Derived(); }
  bool IsPresent() const { return object_ && !IsDerived(); }
  bool IsOmitted() const { return !object_; }
  bool IsDerived() const { return object_ == Derived(); }
  STEPheader* Object() const { return IsPresent() ? object_ : nullptr; }  ///< of any class; null if there is none

  void Write(STEPtransfer* t, const char* name) const {
    if (IsDerived()) return wSTEPtoken(t, name, "*");
    xwSTEPref(t, name, object_);
  }
  bool Equals(const Reference& other, const SameInstance& same) const {
    if (!IsPresent() || !other.IsPresent()) return object_ == other.object_;
    return same(object_, other.object_);
  }
  void Print(std::string& out) const {
    if (IsDerived()) return void(out += '*');
    PrintReference(out, object_);
  }

 protected:
  void ReadAs(STEPtransfer* t, const char* name, int expected) {
    const STEPitem null = rSTEPnull(t, name);
    object_ = null == STEP_DERIVED ? Derived() : nullptr;
    if (null == STEP_END) xrSTEPref(t, name, &object_, expected, true);
  }
  // Stands for a derived reference. Nothing looks into it.
  static STEPheader* Derived() {
    alignas(STEPheader) static char mark = '\0';
    return reinterpret_cast<STEPheader*>(&mark);
  }

  STEPheader* object_ = nullptr;
};

}  // namespace detail

/// A reference to an instance of the class T, whose model owns it. The file may have named an instance of another
/// class: that is reported and kept, for the file's sake, and Get does not return it.
template <class T>
class Ref : public detail::Reference {
 public:
  /// Refers to that instance; null is an omitted reference.
  Ref& operator=(T* object) {
    object_ = object;
    return *this;
  }
  T* Get() const { return dynamic_cast<T*>(Object()); }  ///< null if there is none, or none of class T
  T* operator->() const { return Get(); }                ///< as Get

  /// @cond
  void Read(STEPtransfer* t, const char* name) { ReadAs(t, name, T::kType); }
  /// @endcond
};

}  // namespace steprt

#endif
