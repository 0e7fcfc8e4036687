/// @file
/// What a class of record.h names its attributes to, and what can be done with each of them.
///
///     class Counter : public steprt::Description {
///      public:
///       int attributes = 0;
///      private:
///       void Visit(const char* name, void* value, const steprt::AttributeType& type) override { ++attributes; }
///     };
///     Counter counter;
///     record.Describe(counter);
///
/// Only a program that has operations of its own on attributes needs it. One thread at a time uses the library.
#ifndef STEPRT_DESCRIPTION_H
#define STEPRT_DESCRIPTION_H

#include <steprt/attribute_lists.h>
#include <steprt/attributes.h>
#include <steprt/references.h>
#include <steprt/value.h>

#include <climits>
#include <string>
#include <type_traits>
#include <vector>

namespace steprt {

/// The operations of an attribute type.
struct AttributeType {
  void (*read)(void* value, STEPtransfer* t, const char* name);            ///< from the transfer
  void (*write)(const void* value, STEPtransfer* t, const char* name);     ///< to the transfer
  bool (*equals)(const void* a, const void* b, const SameInstance& same);  ///< of two values of the type
  void (*print)(const void* value, std::string& out);                      ///< for a person to read
  int (*wrong)(const void* value);  ///< the references of a wrong type; null: the transfer has reported them all
};

namespace detail {

// The class whose operations an attribute class has, but for reading: references to all classes are written, compared
// and printed alike, so that a program has the code once.
template <class T>
struct Common {
  using Type = T;
};
template <class T>
struct Common<Ref<T>> {
  using Type = Reference;
};
template <class T>
struct Common<List<Ref<T>>> {
  using Type = ReferenceList;
};

// Whether a transfer leaves it to ReportWrongReferences to check the references of the attribute class T.
template <class T>
inline constexpr bool kIsCheckedLater = false;
template <class T>
inline constexpr bool kIsCheckedLater<Ref<T>> = T::kHasFurtherSubtypes;
template <class T>
inline constexpr bool kIsCheckedLater<List<T>> = kIsCheckedLater<T>;

template <class T>
constexpr auto WrongReferencesOf() -> int (*)(const void*) {
  if constexpr (kIsCheckedLater<T>) {
    return [](const void* value) {
      return static_cast<const T*>(static_cast<const typename Common<T>::Type*>(value))->WrongReferences();
    };
  } else {
    return nullptr;
  }
}

template <class T>
inline constexpr AttributeType kCommonType = {
    nullptr, [](const void* value, STEPtransfer* t, const char* name) { static_cast<const T*>(value)->Write(t, name); },
    [](const void* a, const void* b, const SameInstance& same) {
      return static_cast<const T*>(a)->Equals(*static_cast<const T*>(b), same);
    },
    [](const void* value, std::string& out) { static_cast<const T*>(value)->Print(out); }, nullptr};

// The operations of the attribute class T; the values are those of its common class.
template <class T, class C = typename Common<T>::Type>
inline constexpr AttributeType kType = {
    [](void* value, STEPtransfer* t, const char* name) { static_cast<T*>(static_cast<C*>(value))->Read(t, name); },
    kCommonType<C>.write, kCommonType<C>.equals, kCommonType<C>.print, WrongReferencesOf<T>()};

}  // namespace detail

/// What a class names its attributes to, in the order of the schema, those of the supertype first. An attribute's name
/// is its element in XML. It must live as long as the program.
class Description {
 public:
  virtual ~Description() = default;

  /// Names one attribute.
  template <class T>
  Description& operator()(const char* name, T& value) {
    // A class that derives from Value, such as a SELECT of a compiled schema, has the operations of Value.
    using Type = std::conditional_t<std::is_base_of_v<Value, T>, Value, T>;
    Visit(name, static_cast<typename detail::Common<Type>::Type*>(&value), detail::kType<Type>);
    return *this;
  }

 protected:
  /// Receives each attribute.
  virtual void Visit(const char* name, void* value, const AttributeType& type) = 0;
};

namespace detail {

class Reader final : public Description {
 public:
  explicit Reader(STEPtransfer* t) : t_(t) {}

 private:
  void Visit(const char* name, void* value, const AttributeType& type) override { type.read(value, t_, name); }
  STEPtransfer* const t_;
};

class Writer final : public Description {
 public:
  explicit Writer(STEPtransfer* t) : t_(t) {}

 private:
  void Visit(const char* name, void* value, const AttributeType& type) override { type.write(value, t_, name); }
  STEPtransfer* const t_;
};

class Printer final : public Description {
 public:
  explicit Printer(std::string& out) : out_(out) {}

 private:
  void Visit(const char* /*name*/, void* value, const AttributeType& type) override {
    if (out_.back() != '(') out_ += ',';
    type.print(value, out_);
  }
  std::string& out_;
};

/// The attributes of one instance, in their order.
class Collector final : public Description {
 public:
  struct Item {
    void* value;
    const AttributeType* type;
  };
  std::vector<Item> items;

 private:
  void Visit(const char* /*name*/, void* value, const AttributeType& type) override { items.push_back({value, &type}); }
};

// Reads or writes attributes, but passes over the first ones.
class OwnTransfer final : public Description {
 public:
  OwnTransfer(STEPtransfer* t, bool isWrite) : t_(t), isWrite_(isWrite) {}
  void Skip(int count) { skipped_ = count; }
  int Count() const { return count_; }

 private:
  void Visit(const char* name, void* value, const AttributeType& type) override {
    if (++count_ <= skipped_) return;
    if (isWrite_) return type.write(value, t_, name);
    type.read(value, t_, name);
  }
  STEPtransfer* const t_;
  const bool isWrite_;
  int skipped_ = INT_MAX;
  int count_ = 0;
};

}  // namespace detail
}  // namespace steprt

#endif
