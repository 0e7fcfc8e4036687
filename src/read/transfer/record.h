// The record of one transfer: one read or one write of one file, in either form.
//
// A driver makes it, passes it to everything that it calls, down to the client's read and write functions and the
// attribute readers and writers, and frees it at the end. To a client it is opaque.
#ifndef STEPRT_READ_TRANSFER_RECORD_H
#define STEPRT_READ_TRANSFER_RECORD_H

#include <climits>
#include <memory>

#include "platform/input_file.h"
#include "platform/output_file.h"
#include "schema/lookup_cache.h"
#include "steprt/aggregate.h"
#include "steprt/schema.h"

// Token kinds. There is no kind 7.
enum {
  TOK_ERROR = 0,   // the file ended inside the token
  TOK_REF = 1,     // # and a word; value: int
  TOK_INT = 2,     // value: int
  TOK_REAL = 3,    // a word that is nothing else; value: real
  TOK_TEXT = 4,    // value: text, without the apostrophes
  TOK_NAME = 5,    // value: text
  TOK_ENUM = 6,    // value: text, with its dots
  TOK_NULL = 8,    // $ or *
  TOK_EQUAL = 9,   // =
  TOK_OPEN = 10,   // (
  TOK_CLOSE = 11,  // )
  TOK_COMMA = 12,  // ,
  TOK_SEMI = 13,   // ;
  TOK_EOF = 14     // end of the file
};

inline constexpr int kNoToken = -1;

struct STEPelement;  // elements.h
struct STEPentry;    // entry_index.h

namespace steprt {
struct ReadStore;  // read_store.h
struct WideRead;   // wide_read.h
struct WideWrite;  // write/wide_write.h
}  // namespace steprt

// One pending reference to an instance whose record has not been read.
struct STEPfixup {
  STEPfixup* next;    // newest first
  int number;         // the instance number referred to
  int expected;       // required type, -1 for none
  STEPheader** slot;  // receives the instance at the end of the transfer
};

// The values that are open at the moment; see items.h.
struct ItemState {
  int depth = 0;
  bool isInElement = false;                  // the outermost one is in an XML element; `xml` is false meanwhile
  bool isDocument = false;                   // each element of the standard file in XML is a value in clear text
  bool isListAsked = false;                  // while a `(` is pushed back: rSTEPkind did it
  int line = 0;                              // in the file, where the element is read
  int lastToken = 0;                         // of the transfer, where the element is written
  const char* element = nullptr;             // the name of the one that is written
  std::unique_ptr<steprt::InputFile> input;  // over the text of one that is read
};

inline constexpr int kTokenLimit = 256;  // characters of a word or text that are kept
inline constexpr int kWhereLimit = 63;

struct STEPtransfer {
  STEPtransfer(STEPerrorProc proc, APPobject0* chain, bool isXml)
      : errorProc(proc), schema(chain), xml(isXml), byName(isXml), lookups(chain) {}

  union {
    steprt::InputFile* in;
    steprt::OutputFile* out;
  } file = {nullptr};        // `in` of a clear-text read, `out` of a write; the driver opens and closes it
  int line = 1;              // named in every report
  int errors = 0;            // reports so far
  char* fileName = nullptr;  // the record's own copy, directly after the record
  union {
    int integer;
    double real;
    char* text;
  } value = {0};                // of the last token read
  std::size_t nameLength = 0;   // of the name, if that token is one
  int pushedToken = kNoToken;   // a kind that the next NextToken returns without reading
  STEPaggr* schemas = nullptr;  // the names of FILE_SCHEMA; null until that record has been read
  STEPfixup* fixups = nullptr;  // newest first
  STEPelement* elements = nullptr;
  STEPelement** elementsTail = &elements;
  int lastNumber = 0;        // highest number assigned while writing
  int lastToken = kNoToken;  // reading: TOK_SEMI once the record is closed; writing: TOK_OPEN after an opening bracket
  char buffer[kTokenLimit + 1] = "";  // text of the last word or text
  char where[kWhereLimit + 1] = "";   // for reports: "Read" or "Write", later the keyword at hand
  const STEPerrorProc errorProc;
  APPobject0* const schema;
  // False also while a value of items.h is open in an element. Always true if there is a wideWrite, so that the writers
  // of clear text need no question of their own for that.
  bool xml;

  // Whether a reader needs the name of its attribute: for its element in XML, and for reports in a standard read.
  bool byName;
  const char* attribute = nullptr;  // the one that is read or was read last, in a standard read

  // What makes it fast. A writer looks up a row for each instance just as a reader does for each record, so both have
  // the lookups. Everything else serves reading alone.
  steprt::LookupCache lookups;
  steprt::ReadStore* store = nullptr;  // null in a write; see NewReadTransfer

  ItemState items;

  steprt::WideRead* wide = nullptr;        // set in a read of ISO 10303-21 as it is published
  steprt::WideWrite* wideWrite = nullptr;  // set in such a write
};

namespace steprt {

inline void CountLine(STEPtransfer* t) {
  if (t->line < INT_MAX) ++t->line;
}

}  // namespace steprt

#endif
