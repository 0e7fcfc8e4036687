/// @file
/// References as attributes: Ref<T>.
///
///     door.Maker = &person;                                // steprt::Ref<Person> Maker
///     if (Person* maker = door.Maker.Get()) Visit(*maker);
///     door.Maker.SetObject(complex);                       // a STEPcomplex with a part that is a Person
///
/// The general rules are those of attributes.h. One thread at a time uses the library.
#ifndef STEPRT_REFERENCES_H
#define STEPRT_REFERENCES_H

#include <steprt/attributes.h>
#include <steprt/standard.h>

#include <string>

namespace steprt {

namespace detail {

// The instance if it is of class T; null otherwise. Of a complex instance the part of just this type, or else the first
// part that is of class T: the values of a supertype are in a part of its own.
template <class T>
T* As(STEPheader* object) {
  if (T* found = dynamic_cast<T*>(object)) return found;
  if (!object || object->type != STEPcomplex::kType) return nullptr;
  T* first = nullptr;
  for (STEPheader* part = static_cast<STEPcomplex*>(object)->Parts(); part; part = part->next) {
    T* found = dynamic_cast<T*>(part);
    if (found && part->type == T::kType) return found;
    if (!first) first = found;
  }
  return first;
}

// Whether the instance, or a part of a complex instance, is of a type that the function tells.
template <class Includes>
bool IsIncluded(const STEPheader* object, Includes includes) {
  if (object->type != STEPcomplex::kType) return includes(object->type);
  const STEPheader* part = static_cast<const STEPcomplex*>(object)->Parts();
  while (part && !includes(part->type)) part = part->next;
  return part;
}

// The type that a transfer compares a reference with; -1: it takes any.
template <class T>
constexpr int ExpectedType() {
  return T::kHasFurtherSubtypes ? -1 : T::kType;
}

/// A reference to an instance of any class.
class Reference : public Presence {
 public:
  void Omit() { Become(STEP_OMITTED, nullptr); }
  void Derive() { Become(STEP_DERIVED, nullptr); }
  bool IsPresent() const { return object_; }
  bool IsOmitted() const { return !object_ && !IsDerived(); }
  STEPheader* Object() const { return object_; }  ///< of any class; null if there is none

  void Write(STEPtransfer* t, const char* name) const {
    if (IsDerived()) return wSTEPtoken(t, name, "*");
    xwSTEPref(t, name, object_);
  }
  bool Equals(const Reference& other, const SameInstance& same) const {
    if (!object_ || !other.object_) return object_ == other.object_ && IsDerived() == other.IsDerived();
    return same(object_, other.object_);
  }
  void Print(std::string& out) const {
    if (IsDerived()) return void(out += '*');
    PrintReference(out, object_);
  }

 protected:
  void Become(STEPitem mark, STEPheader* object) {
    mark_ = mark;
    object_ = object;
  }
  // Whether the instance is of none of those types.
  bool IsNotOf(bool (*includes)(int type)) const { return object_ && !IsIncluded(object_, includes); }
  // The instance may be stored only when the transfer ends.
  void ReadAs(STEPtransfer* t, const char* name, int expected) {
    Omit();
    const STEPitem kind = BeginValue(t, name);
    if (kind == STEP_OMITTED || RefuseBracketed(t, name, kind, "Missing reference")) return;
    xrSTEPref(t, name, &object_, expected, true);
  }

 private:
  STEPheader* object_ = nullptr;
};

}  // namespace detail

/// A reference to an instance of the class T, whose model owns it. The file may have named an instance of another
/// class: that is reported and kept, for the file's sake, and Get does not return it. Before you destroy an instance,
/// clear each reference that names it: Get looks at the instance that it finds.
template <class T>
class Ref : public detail::Reference {
 public:
  /// Refers to that instance; null is an omitted reference.
  Ref& operator=(T* object) {
    Become(object ? STEP_END : STEP_OMITTED, object);
    return *this;
  }
  /// Refers to an instance of any class, such as a STEPcomplex with a part of class T. The caller answers for its type.
  void SetObject(STEPheader* object) { Become(object ? STEP_END : STEP_OMITTED, object); }
  /// The instance, or the part of a complex one; null if there is none of class T. It looks through the parts each
  /// time, so a loop should ask once.
  T* Get() const { return detail::As<T>(Object()); }
  T* operator->() const { return Get(); }  ///< as Get

  /// @cond
  void Read(STEPtransfer* t, const char* name) { ReadAs(t, name, detail::ExpectedType<T>()); }
  int WrongReferences() const { return IsNotOf(T::Includes) ? 1 : 0; }
  /// @endcond
};

}  // namespace steprt

#endif
