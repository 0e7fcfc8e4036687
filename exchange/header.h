// The header of a file.
#ifndef STEPRT_EXCHANGE_HEADER_H
#define STEPRT_EXCHANGE_HEADER_H

#include <string>
#include <vector>

#include "record.h"
#include "reports.h"

namespace exchange {

// Texts in UTF-8, without their quotes. What is missing or no text is empty.
struct Header {
  std::vector<std::string> description;
  std::string implementationLevel;
  std::string name;
  std::string timeStamp;
  std::vector<std::string> author;
  std::vector<std::string> organization;
  std::string preprocessorVersion;
  std::string originatingSystem;
  std::string authorization;
  std::vector<std::string> schemas;
};

// The name of a schema without its object identifier: AP_X of "AP_X { 1 0 10303 442 }".
std::string SchemaName(const std::string& schema);

// Takes the entities of the header one by one and checks them.
class HeaderReader {
 public:
  explicit HeaderReader(Reports& reports) : reports_(reports) {}

  void Take(const Record& record);
  // What is missing is reported at `offset`.
  void Finish(std::size_t offset);

  const Header& Get() const { return header_; }
  // Where FILE_SCHEMA is; 0 if it is missing.
  std::size_t SchemaOffset() const { return schemaOffset_; }

 private:
  enum Known { kDescription, kName, kSchema, kKnown };

  void TakeKnown(Known known, const Record& record);
  void TakeText(const Record& record, std::size_t at, std::string& text);
  void TakeTexts(const Record& record, std::size_t at, std::vector<std::string>& texts);
  void Expected(const Record& record, std::size_t at, const char* what);

  Header header_;
  Reports& reports_;
  std::size_t schemaOffset_ = 0;
  int seen_ = 0;  // the known entities come in their order
};

}  // namespace exchange

#endif
