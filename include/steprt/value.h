/// @file
/// A value of any kind, as an attribute: what a SELECT holds, or an attribute that a program keeps without knowing what
/// it means.
///
///     steprt::Value Nominal;                           // IFCLENGTHMEASURE(2.5)
///     if (Nominal.Is("IFCLENGTHMEASURE")) Use(Nominal.First().Real());
///     Nominal.SetTyped("IFCLABEL").SetText("x");
///
/// A value owns its members. It cannot be copied or moved, as every attribute. A reference that the file could not
/// resolve stays a STEP_REF without an instance, and is written as `$`. One thread at a time uses the library.
#ifndef STEPRT_VALUE_H
#define STEPRT_VALUE_H

#include <steprt/attributes.h>
#include <steprt/references.h>

#include <initializer_list>
#include <utility>

namespace steprt {

/// One value with all that is inside it.
class Value {
 public:
  Value() = default;
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  ~Value() { Release(); }

  /// STEP_OMITTED for a new one. STEP_END and STEP_OTHER do not occur.
  STEPitem Kind() const { return kind_; }
  bool IsPresent() const { return kind_ != STEP_OMITTED && kind_ != STEP_DERIVED; }  ///< a value of another kind
  bool IsOmitted() const { return kind_ == STEP_OMITTED; }                           ///< `$`
  bool IsDerived() const { return kind_ == STEP_DERIVED; }                           ///< `*`

  /// The integer; 0 for any other kind.
  int Integer() const { return kind_ == STEP_INT ? as_.integer : 0; }
  /// A real, or an integer as a real; 0 for any other kind.
  double Real() const { return kind_ == STEP_REAL ? as_.real : Integer(); }
  /// The text of STEP_TEXT, the name of STEP_ENUM with its dots, the token of STEP_BINARY, the keyword of STEP_TYPED.
  /// Empty for any other kind. Valid until the value changes.
  const char* Chars() const { return HasChars() ? as_.chars : ""; }
  /// The text of STEP_TEXT as DecodeText returns it; empty for any other kind.
  std::string Utf8(TextFaults* faults = nullptr) const { return DecodeText(kind_ == STEP_TEXT ? Chars() : "", faults); }
  /// The instance; null for any other kind.
  STEPheader* Object() const { return kind_ == STEP_REF ? as_.object : nullptr; }
  /// The instance, if it is of class T; null otherwise.
  template <class T>
  T* Get() const {
    return detail::As<T>(Object());
  }
  /// Whether it is a typed value with this keyword, as the file spells it.
  bool Is(std::string_view keyword) const { return kind_ == STEP_TYPED && keyword == as_.chars; }

  void Omit() { Become(STEP_OMITTED); }                                 ///< `$`
  void Derive() { Become(STEP_DERIVED); }                               ///< `*`
  void SetInteger(int value) { Become(STEP_INT).as_.integer = value; }  ///< an integer
  void SetReal(double value) { Become(STEP_REAL).as_.real = value; }    ///< a real
  /// A reference; null omits the value.
  void SetObject(STEPheader* value) {
    Omit();
    if (value) Become(STEP_REF).as_.object = value;
  }
  void SetText(std::string_view value) { SetChars(STEP_TEXT, value); }  ///< a text, without apostrophes
  /// The text that EncodeText returns.
  void SetUtf8(std::string_view value, TextFaults* faults = nullptr) { SetText(EncodeText(value, faults)); }
  void SetEnumerator(std::string_view value) { SetChars(STEP_ENUM, value); }  ///< with its dots
  void SetBinary(std::string_view value) { SetChars(STEP_BINARY, value); }    ///< with its quotation marks
  void SetList() { Become(STEP_LIST); }                                       ///< empty
  /// A typed value, and the one member that it has. Returns the member, for a further setter.
  Value& SetTyped(std::string_view keyword) {
    SetChars(STEP_TYPED, keyword);
    return Add();
  }

  /// The members of a list or typed value.
  class Iterator {
   public:
    explicit Iterator(Value* value) : value_(value) {}
    Value& operator*() const { return *value_; }
    Iterator& operator++() {
      value_ = value_->next_;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return value_ != other.value_; }

   private:
    Value* value_;
  };
  Iterator begin() const { return Iterator(first_); }  ///< the first member
  Iterator end() const { return Iterator(nullptr); }   ///< the end
  /// The first member, or an omitted value if there is none.
  const Value& First() const {
    static const Value none;
    return first_ ? *first_ : none;
  }
  /// Appends a member to a list or typed value. It stays in its place until the value changes its kind.
  Value& Add() {
    auto* value = new Value;
    (last_ ? last_->next_ : first_) = value;
    return *(last_ = value);
  }

  /// @cond
  void Read(STEPtransfer* t, const char* name) {
    const STEPitem kind = rSTEPkind(t, name);
    switch (kind) {
      case STEP_INT:
        return SetInteger(rSTEPint(t, name));
      case STEP_REAL:
        return SetReal(rSTEPreal(t, name));
      case STEP_REF:
        Become(STEP_REF).as_.object = nullptr;
        return xrSTEPref(t, name, &as_.object, -1, true);
      case STEP_TEXT:
        return SetText(rSTEPtext(t, name));
      case STEP_ENUM:
      case STEP_BINARY:
        return SetChars(kind, rSTEPtoken(t, name));
      case STEP_TYPED:
      case STEP_LIST:
        return ReadMembers(t, name, kind);
      case STEP_OTHER:
        Omit();
        return void(rSTEPrefuse(t, name, "Missing value"));
      default:
        Become(kind == STEP_DERIVED ? STEP_DERIVED : STEP_OMITTED);
        return rSTEPskip(t, name);
    }
  }
  void Write(STEPtransfer* t, const char* name) const {
    switch (kind_) {
      case STEP_INT:
        return wSTEPint(t, name, as_.integer);
      case STEP_REAL:
        return WriteReal(t, name);
      case STEP_REF:
        return xwSTEPref(t, name, as_.object);
      case STEP_TEXT:
        return wSTEPtext(t, name, as_.chars);
      case STEP_ENUM:
      case STEP_BINARY:
        return wSTEPtoken(t, name, as_.chars);
      case STEP_TYPED:
      case STEP_LIST:
        wSTEPopen(t, name, kind_ == STEP_TYPED ? as_.chars : nullptr);
        for (const Value& member : *this) member.Write(t, nullptr);
        return wSTEPclose(t);
      default:
        return wSTEPtoken(t, name, kind_ == STEP_DERIVED ? "*" : "$");
    }
  }
  bool Equals(const Value& other, const SameInstance& same) const {
    if (kind_ != other.kind_) return false;
    if (kind_ == STEP_INT) return as_.integer == other.as_.integer;
    if (kind_ == STEP_REAL) return as_.real == other.as_.real;
    if (kind_ == STEP_REF && (!as_.object || !other.as_.object)) return as_.object == other.as_.object;
    if (kind_ == STEP_REF) return same(as_.object, other.as_.object);
    if (std::strcmp(Chars(), other.Chars()) != 0) return false;
    const Value* a = first_;
    const Value* b = other.first_;
    for (; a && b && a->Equals(*b, same); a = a->next_) b = b->next_;
    return !a && !b;
  }
  void Print(std::string& out) const {
    if (kind_ == STEP_INT) return void(out += std::to_string(as_.integer));
    if (kind_ == STEP_REAL) return detail::PrintNumber(out, as_.real);
    if (kind_ == STEP_REF) return detail::PrintReference(out, as_.object);
    if (kind_ == STEP_TEXT) return void(out.append(1, '\'').append(as_.chars).append(1, '\''));
    if (!IsPresent()) return void(out += IsDerived() ? '*' : '$');
    out += Chars();
    if (kind_ != STEP_TYPED && kind_ != STEP_LIST) return;
    out += '(';
    for (const Value* member = first_; member; member = member->next_) {
      member->Print(out);
      if (member->next_) out += ',';
    }
    out += ')';
  }
  /// @endcond

 private:
  bool HasChars() const {
    return kind_ == STEP_TEXT || kind_ == STEP_ENUM || kind_ == STEP_BINARY || kind_ == STEP_TYPED;
  }
  void Release() {
    if (HasChars()) delete[] as_.chars;
    while (first_) {
      Value* member = std::exchange(first_, first_->next_);
      delete member;
    }
    last_ = nullptr;
  }
  Value& Become(STEPitem kind) {
    Release();
    as_.object = nullptr;
    kind_ = kind;
    return *this;
  }
  void SetChars(STEPitem kind, std::string_view value) {
    char* copy = new char[value.size() + 1];
    if (!value.empty()) std::memcpy(copy, value.data(), value.size());
    copy[value.size()] = '\0';
    Become(kind).as_.chars = copy;
  }
  // A whole number gets a point, so that it is read as a real again.
  void WriteReal(STEPtransfer* t, const char* name) const {
    constexpr int kDigits = 6;  // as wSTEPreal
    char text[32];
    const auto printed = std::to_chars(text, text + sizeof text - 2, as_.real, std::chars_format::general, kDigits);
    if (std::string_view(text, static_cast<std::size_t>(printed.ptr - text)).find_first_not_of("-0123456789") !=
        std::string_view::npos) {
      return wSTEPreal(t, name, as_.real);
    }
    if (wSTEPisstandard(t)) return wSTEPreal(t, name, as_.real);  // which has the point itself
    printed.ptr[0] = '.';
    printed.ptr[1] = '\0';
    wSTEPtoken(t, name, text);
  }
  void ReadMembers(STEPtransfer* t, const char* name, STEPitem kind) {
    Omit();
    const char* keyword = rSTEPopen(t, name);
    if (!keyword) return;  // too deep, or out of memory: reported
    if (kind == STEP_TYPED) {
      SetChars(kind, keyword);
    } else {
      Become(kind);
    }
    while (rSTEPkind(t, nullptr) != STEP_END) Add().Read(t, nullptr);
    rSTEPclose(t);
  }

  STEPitem kind_ = STEP_OMITTED;
  union {
    int integer;
    double real;
    char* chars;
    STEPheader* object;
  } as_ = {0};
  Value* first_ = nullptr;
  Value* last_ = nullptr;
  Value* next_ = nullptr;  // in the value that this one is a member of
};

/// The type numbers from `first` to `last`.
struct TypeRange {
  int first;  ///< the lowest
  int last;   ///< the highest
};

/// Whether a type number is in one of the ranges.
inline bool IsTypeIn(int type, std::initializer_list<TypeRange> ranges) {
  for (const TypeRange& range : ranges) {
    if (type >= range.first && type <= range.last) return true;
  }
  return false;
}

/// Whether a value is one that a SELECT allows: omitted or derived, a typed value with one of the keywords, a reference
/// to an instance of one of the types, or an enumerator where `enumerators` is true.
inline bool IsOneOf(const Value& value, std::initializer_list<std::string_view> keywords,
                    std::initializer_list<TypeRange> types, bool enumerators) {
  if (!value.IsPresent()) return true;
  if (value.Kind() == STEP_ENUM) return enumerators;
  if (STEPheader* object = value.Object()) {
    return detail::IsIncluded(object, [&](int type) { return IsTypeIn(type, types); });
  }
  if (value.Kind() == STEP_REF) return true;
  for (const std::string_view keyword : keywords) {
    if (value.Is(keyword)) return true;
  }
  return false;
}

}  // namespace steprt

#endif
