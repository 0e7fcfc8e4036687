/// @file
/// Attribute types: what the entity classes of record.h are made of. Each owns what it holds, and tells an omitted
/// value (`$`), a derived one (`*`) and an empty one apart.
///
///     struct Door : steprt::Entity<Door, kDoor, Element> {
///       steprt::Real Width;                          // door.Width = 0.9;  door.Width.Or(1.0)
///       steprt::Enumeration<Swing> Opens;            // door.Opens = Swing::kLeft
///       steprt::Ref<Person> Maker;                   // if (Person* maker = door.Maker.Get()) ...
///       steprt::List<steprt::Ref<Hinge>> Hinges;     // for (Hinge& hinge : door.Hinges) ...
///     };
///
/// A new attribute is omitted. So is one whose value in the file is of another kind, or an enumerator that its
/// enumeration does not have: that is reported, and the value is passed over. Attributes cannot be copied or moved: a
/// transfer stores references into them at its end.
///
/// An integer has 32 bits. In the library's own form a real has six significant digits and a text 256 characters, and
/// XML does not tell a text that is `$` or `*` from a value that is not there; standard files have no such limits. When
/// memory runs out for what an attribute makes, that is std::bad_alloc; what the library makes is reported and lost, as
/// read.h says.
///
/// One thread at a time uses the library.
#ifndef STEPRT_ATTRIBUTES_H
#define STEPRT_ATTRIBUTES_H

#include <steprt/aggregate.h>
#include <steprt/encoding.h>
#include <steprt/instance.h>
#include <steprt/items.h>
#include <steprt/read.h>
#include <steprt/standard_write.h>
#include <steprt/write.h>

#include <charconv>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

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
  out.append(text, std::to_chars(text, text + sizeof text, number).ptr);
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
  // Returns the kind of the value that follows, and leaves the value to its reader. Takes a `$`, a `*` and in XML a
  // missing element, and returns STEP_OMITTED for each of them.
  STEPitem BeginValue(STEPtransfer* t, const char* name) {
    const STEPitem kind = rSTEPkind(t, name);
    mark_ = STEP_END;
    if (kind != STEP_OMITTED && kind != STEP_DERIVED && kind != STEP_END) return kind;
    mark_ = rSTEPnull(t, name);
    return mark_ == STEP_END ? STEP_END : STEP_OMITTED;
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
  // Refuses a value that is missing or bracketed, which no reader of one value passes over whole.
  bool RefuseBracketed(STEPtransfer* t, const char* name, STEPitem kind, const char* message) {
    if (kind != STEP_END && kind != STEP_TYPED && kind != STEP_LIST) return false;
    if (!rSTEPrefuse(t, name, message)) return false;
    mark_ = STEP_OMITTED;
    return true;
  }

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
    const STEPitem kind = BeginValue(t, name);
    if (kind == STEP_OMITTED) return;
    if (Form::Fits(kind) || !rSTEPrefuse(t, name, Form::kMissing)) {
      value_ = Form::Read(t, name, mark_);
    } else {
      mark_ = STEP_OMITTED;
    }
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

// What each form reads, writes and prints, and which kinds of value it takes. A keyword that is none of its own is
// reported by its reader.
struct IntegerForm {
  static constexpr const char* kMissing = "Missing integer";
  static bool Fits(STEPitem kind) { return kind == STEP_INT; }
  static int Read(STEPtransfer* t, const char* name, STEPitem& /*mark*/) { return rSTEPint(t, name); }
  static void Write(STEPtransfer* t, const char* name, int value) { wSTEPint(t, name, value); }
  static void Print(std::string& out, int value) { out += std::to_string(value); }
};

struct RealForm {
  static constexpr const char* kMissing = "Missing real";
  static bool Fits(STEPitem kind) { return kind == STEP_REAL || kind == STEP_INT; }
  static double Read(STEPtransfer* t, const char* name, STEPitem& /*mark*/) { return rSTEPreal(t, name); }
  static void Write(STEPtransfer* t, const char* name, double value) { wSTEPreal(t, name, value); }
  static void Print(std::string& out, double value) { PrintNumber(out, value); }
};

struct BooleanForm {
  static constexpr const char* kMissing = "Missing bool";
  static bool Fits(STEPitem kind) { return kind == STEP_ENUM; }
  static bool Read(STEPtransfer* t, const char* name, STEPitem& /*mark*/) { return rSTEPbool(t, name); }
  static void Write(STEPtransfer* t, const char* name, bool value) { wSTEPbool(t, name, value); }
  static void Print(std::string& out, bool value) { out += value ? ".T." : ".F."; }
};

struct LogicalForm {
  static constexpr const char* kMissing = "Missing logical";
  static bool Fits(STEPitem kind) { return kind == STEP_ENUM; }
  static int Read(STEPtransfer* t, const char* name, STEPitem& /*mark*/) { return rSTEPlog(t, name); }
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
  static constexpr const char* kMissing = "Missing enumeration";
  static bool Fits(STEPitem kind) { return kind == STEP_ENUM; }
  // Before the names comes one that no enumerator has: the reader returns position 0 for an unknown enumerator.
  static E Read(STEPtransfer* t, const char* name, STEPitem& mark) {
    const EnumeratorNames all = NamesOf(E());
    static std::vector<const char*> names = {""};
    if (names.size() == 1) names.insert(names.end(), all.names, all.names + all.count);
    const int position = rSTEPenum(t, name, names.data(), static_cast<int>(names.size()));
    if (position == 0) mark = STEP_OMITTED;
    return static_cast<E>(position > 0 ? position - 1 : 0);
  }
  static void Write(STEPtransfer* t, const char* name, E value) {
    wSTEPenum(t, name, static_cast<int>(value), NamesOf(value).names);
  }
  static void Print(std::string& out, E value) { out += NamesOf(value).names[static_cast<int>(value)]; }
};

}  // namespace detail

/// An enumerator. A function in the namespace of the enumeration returns the names:
///
///     inline steprt::EnumeratorNames NamesOf(Swing) {
///       static const char* names[] = {".LEFT.", ".RIGHT."};
///       return {names, 2};
///     }
template <class E>
using Enumeration = detail::Scalar<E, detail::EnumerationForm<E>>;

/// A text, without its apostrophes. Encoded characters stay as they are in the file; only Utf8 and SetUtf8 convert.
class Text : public detail::Presence {
 public:
  Text() = default;
  ~Text() { delete[] chars_; }

  /// Takes a copy of the text.
  Text& operator=(std::string_view text) {
    char* copy = new char[text.size() + 1];
    if (!text.empty()) std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    Become(STEP_END, copy);
    return *this;
  }
  /// Takes a copy of the text; null omits it.
  Text& operator=(const char* text) {
    if (text) return *this = std::string_view(text);
    Omit();
    return *this;
  }
  void Omit() { Become(STEP_OMITTED, nullptr); }    ///< `$`
  void Derive() { Become(STEP_DERIVED, nullptr); }  ///< `*`

  /// The text; empty if there is none. Valid until the attribute changes.
  const char* Get() const { return chars_ ? chars_ : ""; }

  /// The text as DecodeText returns it; empty if there is none.
  std::string Utf8(TextFaults* faults = nullptr) const { return DecodeText(Get(), faults); }
  /// Takes the text that EncodeText returns. The limit of 256 characters applies to the encoded text.
  void SetUtf8(std::string_view utf8, TextFaults* faults = nullptr) { *this = EncodeText(utf8, faults); }

  /// @cond
  void Read(STEPtransfer* t, const char* name) {
    Omit();
    const STEPitem kind = BeginValue(t, name);
    if (kind == STEP_OMITTED || RefuseBracketed(t, name, kind, "Missing text")) return;
    *this = rSTEPtext(t, name);
  }
  void Write(STEPtransfer* t, const char* name) const {
    if (!WriteMark(t, name)) wSTEPtext(t, name, chars_);
  }
  bool Equals(const Text& other, const SameInstance& /*same*/) const {
    return mark_ == other.mark_ && std::strcmp(Get(), other.Get()) == 0;
  }
  void Print(std::string& out) const {
    if (!PrintMark(out)) out.append(1, '\'').append(chars_).append(1, '\'');
  }
  /// @endcond

 private:
  void Become(STEPitem mark, char* chars) {
    delete[] chars_;
    chars_ = chars;
    mark_ = mark;
  }

  char* chars_ = nullptr;  // null: there is no text
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
    const STEPitem kind = BeginValue(t, name);
    if (kind == STEP_OMITTED) return;
    if (kind == STEP_BINARY || !rSTEPrefuse(t, name, "Missing binary")) {
      token_ = rSTEPtoken(t, name);
    } else {
      Omit();
    }
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

}  // namespace steprt

#endif
