/// @file
/// Entity classes that name their attributes once: reading, writing, comparing and printing follow.
///
///     struct Person : steprt::Entity<Person, 1> {
///       static constexpr const char* kKeyword = "PERSON";
///       steprt::Text Name;
///       void Describe(steprt::Description& d) override { d("Name", Name); }
///     };
///     struct Wall : steprt::Entity<Wall, 2> {
///       static constexpr const char* kKeyword = "WALL";
///       steprt::Real Height;
///       steprt::Ref<Person> Owner;
///       void Describe(steprt::Description& d) override { d("Height", Height)("Owner", Owner); }
///     };
///     inline auto plant = steprt::Schema<Person, Wall>("PLANT");   // C++20: constinit
///
///     steprt::Model model(&plant);
///     if (model.Read(path) != 0) ...
///     for (Wall& wall : model.All<Wall>()) Visit(wall, wall.Owner.Get());
///
/// This header is the client's code: it uses the library's other headers and nothing else of it. Memory that runs out
/// is std::bad_alloc, which passes through a read or a write as every exception of the client does.
///
/// One thread at a time uses the library.
#ifndef STEPRT_RECORD_H
#define STEPRT_RECORD_H

#include <steprt/attribute_lists.h>
#include <steprt/attributes.h>
#include <steprt/description.h>
#include <steprt/model.h>
#include <steprt/references.h>
#include <steprt/schema.h>
#include <steprt/standard_write.h>
#include <steprt/value.h>

#include <cstdio>
#include <string>
#include <type_traits>

namespace steprt {

/// The base class of all described entities. An instance joins the current model, which then owns it: make it with new.
/// The model that was made last is the current one; CurrentModel(&model) chooses another. A new value of an attribute
/// does not mark the model as changed: call Changed.
class Record : public STEPheader {
 public:
  static constexpr int kType = -1;                    ///< as the type of a reference: any entity
  static constexpr int kLastType = -1;                ///< see Entity
  static constexpr bool kHasFurtherSubtypes = false;  ///< see Entity
  static constexpr const char* kKeyword = nullptr;    ///< none: it is no entity

  Record() : STEPheader(nullptr) {}
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;

  /// Names every attribute to the description, those of the supertype first: `Super::Describe(d);`
  virtual void Describe(Description& description) = 0;

  /// @cond
  // Names the attributes of the supertype. Returns how many attributes of further supertypes follow them.
  virtual int DescribeInherited(Description& /*description*/) { return 0; }
  /// @endcond
};

// A base class between Record and an entity need not describe anything.
inline void Record::Describe(Description& /*description*/) {}

/// An entity class. Self derives from it and has a kKeyword.
///
///   kNumber  the entity's type number, not negative and its own within the schema
///   Base     the class of the supertype
template <class Self, int kNumber, class Base = Record>
class Entity : public Base {
 public:
  static constexpr int kType = kNumber;  ///< the type number
  /// The class may hide it with the greatest type number of its subtypes, if they have all numbers from kType to that
  /// one and no other class has one of these. Queries are then faster.
  static constexpr int kLastType = -1;
  /// The class hides it with true if subtypes exist that do not derive from it. It then has a function
  /// `static bool Includes(int type)`, which tells whether a type is its own or of a subtype. A transfer takes a
  /// reference to any instance, and ReportWrongReferences checks it.
  static constexpr bool kHasFurtherSubtypes = false;
  /// The class may hide it with the count of its members that are attributes of further supertypes. These come first
  /// and are not read for a part of a complex instance.
  static constexpr int kFurtherAttributes = 0;
  using Super = Base;         ///< the class of the supertype
  using AbstractSelf = void;  ///< see AbstractEntity

  Entity() { this->type = kNumber; }

  /// @cond
  int DescribeInherited(Description& description) override {
    Base::Describe(description);
    return Self::kFurtherAttributes;
  }
  /// @endcond
};

/// An entity that has no instances of its own. A record of it in a file is reported as "Syntax" and skipped. A part of
/// a complex instance may be of such an entity: then the class is made for it, unless it has no default constructor or
/// a pure virtual function. An instance that a program makes all the same is written.
template <class Self, int kNumber, class Base = Record>
class AbstractEntity : public Entity<Self, kNumber, Base> {
 public:
  using AbstractSelf = Self;  ///< this class, but none that derives from it, is abstract
};

namespace detail {

// Reads or writes what the record's own class declares: what comes after all that it inherits.
inline void TransferPart(STEPtransfer* t, Record* record, bool isWrite) {
  OwnTransfer inherited(t, isWrite);
  const int further = record->DescribeInherited(inherited);
  OwnTransfer own(t, isWrite);
  own.Skip(inherited.Count() + further);
  record->Describe(own);
}

// Reads the new record, whole or as a part. A row has a function of its own only to make the record: a schema has some
// hundred rows.
[[gnu::noinline]] inline STEPheader* ReadInto(STEPtransfer* t, Record* record) {
  if (rSTEPispart(t)) {
    TransferPart(t, record, false);
  } else {
    Reader reader(t);
    record->Describe(reader);
  }
  return record;
}

template <class T>
STEPheader* ReadRecord(STEPtransfer* t) {
  return ReadInto(t, new T);
}

template <class T>
STEPheader* ReadAbstractRecord(STEPtransfer* t) {
  return rSTEPispart(t) ? ReadInto(t, new T) : rSTEPabstract(t);
}

inline void WriteRecord(STEPtransfer* t, STEPheader* object) {
  auto* record = static_cast<Record*>(object);
  if (wSTEPispart(t)) return TransferPart(t, record, true);
  Writer writer(t);
  record->Describe(writer);
}

// Null is no text.
constexpr bool IsSameText(const char* a, const char* b) {
  if (!a || !b) return false;
  while (*a && *a == *b) {
    ++a;
    ++b;
  }
  return *a == *b;
}

template <class T>
constexpr APPentity RowOf() {
  static_assert(!IsSameText(T::kKeyword, T::Super::kKeyword), "each entity class has a kKeyword of its own");
  constexpr bool isAbstract = std::is_same_v<typename T::AbstractSelf, T>;
  if constexpr (!isAbstract) {
    return {T::kKeyword, ReadRecord<T>, WriteRecord, T::kType, T::Super::kKeyword};
  } else if constexpr (std::is_default_constructible_v<T>) {
    return {T::kKeyword, ReadAbstractRecord<T>, WriteRecord, T::kType, T::Super::kKeyword};
  } else {
    return {T::kKeyword, nullptr, nullptr, T::kType, T::Super::kKeyword};
  }
}

template <class... Classes>
inline constexpr APPentity kRows[sizeof...(Classes)] = {RowOf<Classes>()...};

}  // namespace detail

/// The descriptor of entity classes, each once and in any order. A program has one for each schema, which must outlive
/// its models.
///
///   name       the schema's name
///   errorProc  receives the reports; null: the library's own, which writes to standard error
template <class... Classes>
constexpr APPtable<static_cast<int>(sizeof...(Classes))> Schema(const char* name, STEPerrorProc errorProc = nullptr) {
  return APPtable<static_cast<int>(sizeof...(Classes))>(name, detail::kRows<Classes...>, errorProc);
}

/// The instances of class T, subclasses included, of a model, in its order. Of a complex instance each part of class T.
/// The iteration holds the instance at hand: do not destroy that one meanwhile.
template <class T>
class Instances {
 public:
  class Iterator {
   public:
    explicit Iterator(STEPheader* object) {
      Enter(object);
      Settle();
    }
    T& operator*() const { return *instance_; }
    Iterator& operator++() {
      Step();
      Settle();
      return *this;
    }
    bool operator!=(const Iterator& other) const { return object_ != other.object_ || part_ != other.part_; }

   private:
    static T* Cast(STEPheader* object) {
      if (T::kLastType >= 0 && (object->type < T::kType || object->type > T::kLastType)) return nullptr;
      return dynamic_cast<T*>(object);
    }
    void Enter(STEPheader* object) {
      object_ = object;
      const bool isComplex = object && object->type == STEPcomplex::kType;
      part_ = isComplex ? static_cast<STEPcomplex*>(object)->Parts() : nullptr;
    }
    void Step() {
      if (part_ && part_->next) {
        part_ = part_->next;
      } else {
        Enter(object_->next);
      }
    }
    // Goes on to the first instance or part of class T, from the one at hand on.
    void Settle() {
      while (object_ && !(instance_ = Cast(part_ ? part_ : object_))) Step();
    }
    STEPheader* object_;
    STEPheader* part_;  // of a complex instance, else null
    T* instance_ = nullptr;
  };

  /// Those from that instance on.
  explicit Instances(STEPheader* first) : first_(first) {}
  Iterator begin() const { return Iterator(first_); }  ///< the first one
  Iterator end() const { return Iterator(nullptr); }   ///< the end

 private:
  STEPheader* const first_;
};

/// A model of described entities.
class Model : public STEPmodel {
 public:
  /// An empty model of the schema, which becomes the current model.
  explicit Model(APPobject0* descriptor, int reportsShown = 10) : STEPmodel(reportsShown) { AppObj(descriptor); }
  ~Model() override {
    if (CurrentModel() == this) CurrentModel(nullptr);
  }
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;

  using STEPmodel::Read;
  using STEPmodel::ReadStandard;
  using STEPmodel::Write;
  using STEPmodel::WriteStandard;
  using STEPmodel::WriteStandardXml;
  using STEPmodel::WriteXml;
  /// STEPmodel::Read of any text. `check`: read the data only if the file names this schema.
  int Read(const std::string& path, bool check = false) {
    return STEPmodel::Read(check, const_cast<char*>(path.c_str()));
  }
  /// STEPmodel::ReadStandard of any text.
  int ReadStandard(const std::string& path, const STEPreadOptions* options = nullptr) {
    return STEPmodel::ReadStandard(path.c_str(), options);
  }
  /// STEPmodel::Write of any text.
  int Write(const std::string& path, const char* remark = "") {
    return STEPmodel::Write(const_cast<char*>(path.c_str()), remark);
  }
  /// STEPmodel::WriteStandard of any text.
  int WriteStandard(const std::string& path, const STEPfileHeader* header = nullptr,
                    const STEPwriteOptions* options = nullptr) {
    return STEPmodel::WriteStandard(path.c_str(), header, options);
  }
  /// STEPmodel::WriteStandardXml of any text.
  int WriteStandardXml(const std::string& path, const STEPfileHeader* header = nullptr,
                       const STEPwriteOptions* options = nullptr) {
    return STEPmodel::WriteStandardXml(path.c_str(), header, options);
  }
  /// STEPmodel::WriteXml of any text.
  int WriteXml(const std::string& path, const char* remark = "") {
    return STEPmodel::WriteXml(const_cast<char*>(path.c_str()), remark);
  }

  /// The instances of class T, in the model's order.
  template <class T>
  Instances<T> All() {
    return Instances<T>(Inst());
  }
};

namespace detail {

class WrongReferences final : public Description {
 public:
  explicit WrongReferences(STEPmodel& model) : model_(model) {
    for (const APPobject0* schema = model.schema; schema && !report_; schema = schema->next) {
      report_ = schema->errorProc;
    }
  }
  void Check(Record& record) {
    record_ = &record;
    record.Describe(*this);
  }
  int Count() const { return count_; }

 private:
  void Visit(const char* name, void* value, const AttributeType& type) override {
    if (!type.wrong || type.wrong(value) == 0) return;
    ++count_;
    const std::string text = std::string("STEP error: ") + model_.Name() + " [" + record_->EntityName() +
                             "]Reference to wrong object type '" + name + "'";
    if (report_) return report_(text.c_str());
    std::fprintf(stderr, "%s\n", text.c_str());
  }
  STEPmodel& model_;
  STEPerrorProc report_ = nullptr;
  Record* record_ = nullptr;
  int count_ = 0;
};

}  // namespace detail

/// Reports the attributes that refer to an instance of a wrong type, where the class of the reference has further
/// subtypes; all other references a transfer checks itself. Call it after a read. Returns how many attributes it has
/// reported, to the error procedure of the schema or, without one, to standard error. The references stay as they are.
inline int ReportWrongReferences(Model& model) {
  detail::WrongReferences check(model);
  for (Record& record : model.All<Record>()) check.Check(record);
  return check.Count();
}

/// Whether two records are of one class and have equal attributes.
inline bool Equal(Record& a, Record& b, const SameInstance& same = SameInstance()) {
  if (a.type != b.type) return false;
  detail::Collector ours;
  detail::Collector theirs;
  a.Describe(ours);
  b.Describe(theirs);
  if (ours.items.size() != theirs.items.size()) return false;
  for (std::size_t i = 0; i < ours.items.size(); ++i) {
    if (!ours.items[i].type->equals(ours.items[i].value, theirs.items[i].value, same)) return false;
  }
  return true;
}

/// The record much as clear text has it, for a person to read: WALL('W1',2.5,#1). A reference shows the number that its
/// instance had in the file last written or XML document last read, and 0 before.
inline std::string Print(Record& record) {
  std::string out = record.EntityName();
  out += '(';
  detail::Printer printer(out);
  record.Describe(printer);
  return out += ')';
}

}  // namespace steprt

#endif
