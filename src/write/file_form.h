// What differs between the two forms of a written file. Clear text fills one FileForm (write/file_writer.cpp) and XML
// the other (xml/xml_writer.cpp); write/driver.cpp writes a file of either.
#ifndef STEPRT_WRITE_FILE_FORM_H
#define STEPRT_WRITE_FILE_FORM_H

#include <string_view>

#include "read/transfer/record.h"
#include "support/text_buffer.h"

namespace steprt {

struct FileForm {
  bool xml;
  OutputFile::Sharing sharing;

  // Returns the file's name as the head of the file can hold it, in `buffer`. Null when memory runs out.
  const char* (*spellName)(TextBuffer& buffer, const char* fileName);

  void (*putHead)(STEPtransfer* t, const char* shownName, const char* remark);
  int firstLine;  // of the first record, for reports
  void (*openRecord)(STEPtransfer* t, std::string_view name, int number);
  void (*closeRecord)(STEPtransfer* t, std::string_view name);
  void (*putTail)(STEPtransfer* t);
};

}  // namespace steprt

#endif
