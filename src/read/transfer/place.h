// Places in the file of a standard read, for its reports. The fast paths of the tokeniser note nothing: the place of
// the token that was read last is searched backwards from the cursor, and only when a report needs it.
#ifndef STEPRT_READ_TRANSFER_PLACE_H
#define STEPRT_READ_TRANSFER_PLACE_H

#include <cstdint>

#include "read/transfer/record.h"

namespace steprt {

struct Place {
  int line = 0;
  int column = 0;  // in bytes, from 1; 0: unknown
  std::uint64_t offset = 0;
};

// Where the token begins that a slow path of the tokeniser reads, and where the last one ended. It may be longer than
// a block.
struct SlowToken {
  const char* start = nullptr;
  const char* end = nullptr;
  std::uint32_t startBlock = 0;
  std::uint32_t endBlock = 0;
  int line = 0;
  bool hasCrossed = false;  // the block has been replaced since its start, and `place` tells where that was
  Place place;
};

// What is between two calls is a token of a slow path. Its first byte has been read.
void BeginSlowToken(STEPtransfer* t);
void EndSlowToken(STEPtransfer* t);

// Must be called before the block is replaced while a slow path reads a token.
void KeepSlowToken(STEPtransfer* t);

// The place of the token that a slow path reads, or has read last.
Place PlaceOfSlowToken(STEPtransfer* t);

// The place of the token that was read last, without the blanks that were read after it.
Place PlaceOfLastToken(STEPtransfer* t);

// The same for a token that is a reference, which is quicker.
Place PlaceOfReference(STEPtransfer* t);

// Tells that blanks and comments after the last token, whose place was that, have been read up to the cursor. The block
// may have been replaced meanwhile.
void KeepPlaceOfLastToken(STEPtransfer* t, const Place& place);

// Where the last token begins of what is between `start` and `end` and has no other separators than a comment, a binary
// or a `*` before it.
const char* StartOfLastWord(const InputFile& in, const char* start, const char* end);

// Notes the last token as the one that the next report is about, although more will be read before. Only a standard
// read does.
[[gnu::noinline, gnu::cold]] void NoteFault(STEPtransfer* t);

}  // namespace steprt

#endif
