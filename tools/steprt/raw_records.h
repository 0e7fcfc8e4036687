// The records of a file of any schema as tokens. A token keeps its spelling, so no value changes on the way from a
// standard file to a standard file.
//
//   RawRecords records;
//   steprt::Model model(records.ReadDescriptor());
//   options.unknown = RawRecords::Row();
//   model.ReadStandard(path, &options);
//   model.AppObj(records.WriteDescriptor(model, "PLANT", false));
//   model.WriteStandard(...)
#ifndef STEPRT_TOOLS_RAW_RECORDS_H
#define STEPRT_TOOLS_RAW_RECORDS_H

#include <steprt/instance.h>
#include <steprt/items.h>
#include <steprt/model.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "losses.h"
#include "table.h"

namespace steprt_tools {

// A record, or a part of a complex instance.
class RawRecord : public STEPheader {
 public:
  explicit RawRecord(STEPtransfer* t);

  std::uint64_t Name() const { return name_; }
  const std::string& Keyword() const { return keyword_; }
  const std::string& Tokens() const { return tokens_; }

 private:
  void Add(STEPitem kind, const char* text);
  void ReadValues(STEPtransfer* t);

  std::uint64_t name_;
  std::string keyword_;
  std::string tokens_;  // of each its kind, its text and a null character; STEP_END closes a bracket
};

// One at a time: rows have no place for what they belong to.
class RawRecords {
 public:
  RawRecords();
  ~RawRecords();
  RawRecords(const RawRecords&) = delete;
  RawRecords& operator=(const RawRecords&) = delete;

  static const APPentity* Row();  // for STEPreadOptions::unknown
  APPobject0* ReadDescriptor() const { return empty_.Descriptor(); }

  // A descriptor with a row for each keyword of the records. `isNative`: for the library's own form.
  APPobject0* WriteDescriptor(STEPmodel& model, const std::string& schema, bool isNative);

  const Losses& Lost() const { return lost_; }

 private:
  static void Write(STEPtransfer* t, STEPheader* object);

  void Enter(STEPheader* object);
  void WriteToken(STEPtransfer* t, STEPitem kind, const char* text);
  void WriteCapitals(STEPtransfer* t, const char* token);
  void WriteInteger(STEPtransfer* t, const char* token);
  void WriteReal(STEPtransfer* t, const char* token);
  void WriteReference(STEPtransfer* t, const char* token);

  const Table empty_;
  std::unique_ptr<Table> table_;
  std::unordered_map<std::string, int> types_;                // of the keywords
  std::unordered_map<std::uint64_t, STEPheader*> instances_;  // by name; complex ones are not in it
  bool isNative_ = false;
  Losses lost_;
};

}  // namespace steprt_tools

#endif
