/// @file
/// A record of an entity that a program knows nothing of: its keyword and its values, as they are in the file.
///
///     STEPreadOptions options;
///     options.unknown = steprt::AnyRecord::Row();
///     model.ReadStandard("plant.stp", &options);
///     for (steprt::AnyRecord& record : model.All<steprt::AnyRecord>()) {
///       if (std::string_view(record.Keyword.Get()) == "DOOR") Use(record.Values.First());
///     }
///
/// A schema may have other classes: then only the records, and the parts of complex instances, that these do not read
/// become an AnyRecord. So a program that reads, changes some records and writes loses none. One thread at a time uses
/// the library.
#ifndef STEPRT_ANY_RECORD_H
#define STEPRT_ANY_RECORD_H

#include <steprt/record.h>
#include <steprt/standard.h>
#include <steprt/standard_write.h>

#include <cstdint>

namespace steprt {

/// An instance of an entity without a class.
class AnyRecord : public Record {
 public:
  static constexpr int kType = -3;  ///< the type of all of them, which no row of a schema has

  AnyRecord() {
    type = kType;
    Values.SetList();
  }

  Text Keyword;            ///< the entity, as the file spells it
  Value Values;            ///< a list: the values in their order
  std::uint64_t Name = 0;  ///< 12 for #12; of a part, that of its complex instance

  void Describe(Description& d) override { d("Keyword", Keyword)("Values", Values); }

  /// The row for STEPreadOptions::unknown and STEPwriteOptions::unknown.
  static const APPentity* Row() {
    static constexpr APPentity row = {"", ReadAny, WriteAny, kType, nullptr};
    return &row;
  }

 private:
  static STEPheader* ReadAny(STEPtransfer* t) {
    auto* record = new AnyRecord;
    record->Keyword = rSTEPkeyword(t);
    record->Name = rSTEPinstance(t);
    while (rSTEPkind(t, nullptr) != STEP_END) record->Values.Add().Read(t, nullptr);
    return record;
  }
  static void WriteAny(STEPtransfer* t, STEPheader* object) {
    const auto* record = static_cast<AnyRecord*>(object);
    wSTEPkeyword(t, record->Keyword.Get());
    for (const Value& value : record->Values) value.Write(t, nullptr);
  }
};

}  // namespace steprt

#endif
