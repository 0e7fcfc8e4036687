// The records of one transfer: one read or write of one file, in either form. A client sees STEPtransfer as a name
// only.
#ifndef STEPRT_READ_TRANSFER_RECORD_H
#define STEPRT_READ_TRANSFER_RECORD_H

#include "platform/input_file.h"
#include "platform/output_file.h"
#include "read/transfer/elements.h"
#include "read/transfer/entry_index.h"
#include "read/transfer/prefetch.h"
#include "schema/lookup_cache.h"
#include "steprt/aggregate.h"
#include "steprt/schema.h"
#include "support/pool.h"

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

// One pending forward reference.
struct STEPfixup {
  STEPfixup* next;    // newest first
  int number;         // the instance number referred to
  int expected;       // required type, -1 for none
  STEPheader** slot;  // where the instance's address belongs once it is known
};

inline constexpr int kTableBuckets = 4096;
inline constexpr int kTokenLimit = 256;  // characters of a word or text that are kept
inline constexpr int kWhereLimit = 63;

struct STEPtransfer {
  STEPtransfer(STEPerrorProc proc, APPobject0* chain, bool isXml)
      : errorProc(proc), schema(chain), xml(isXml), lookups(chain) {}

  union {
    steprt::InputFile* in;
    steprt::OutputFile* out;
  } file = {nullptr};        // of a clear-text read, of a write; opened and closed by the driver
  int line = 1;              // named in every report
  int errors = 0;            // reports so far
  char* fileName = nullptr;  // the record's own copy, directly behind the record
  union {
    int integer;
    double real;
    char* text;
  } value = {0};                // of the last token read
  int pushedToken = kNoToken;   // a kind that the next NextToken hands back
  STEPaggr* schemas = nullptr;  // the names of FILE_SCHEMA; null until that record has been read
  STEPfixup* fixups = nullptr;  // newest first
  STEPelement* elements = nullptr;
  STEPelement** elementsTail = &elements;
  STEPentry* table[kTableBuckets] = {};  // the instance table
  int lastNumber = 0;                    // highest number handed out while writing
  int lastToken = kNoToken;  // reading: TOK_SEMI once the record is closed; writing: TOK_OPEN at a bracket's start
  char buffer[kTokenLimit + 1] = "";  // text of the last word or text
  char where[kWhereLimit + 1] = "";   // the operation, then the keyword of the entity at hand
  const STEPerrorProc errorProc;
  APPobject0* const schema;
  const bool xml;

  // Behind the record proper: what makes it fast. The results are those of the fields above.
  const char* listedSchema = nullptr;  // the name that was last found in `schemas`
  steprt::LookupCache lookups;
  steprt::EntryIndex entries;  // the rows of `table`
  steprt::Prefetcher prefetcher;
  steprt::Pool<STEPfixup> fixupPool;
  steprt::ChildElements childElements{&elements, &elementsTail};
};

#endif
