// The attribute writers in a write of ISO 10303-21 as it is published. In clear text each writes a value with its
// comma, in XML an element whose text is the value in clear text.
//
// A line of clear text ends between two tokens, before the one that it has no place for.
#ifndef STEPRT_WRITE_WIDE_VALUES_H
#define STEPRT_WRITE_WIDE_VALUES_H

#include <cstdint>
#include <string_view>

#include "read/transfer/record.h"
#include "write/wide_write.h"

namespace steprt {

// The characters of a line. One token that is longer has a line of its own.
inline constexpr std::size_t kLineLimit = 72;

// Writes one token, or a part of it that can be on a line of its own. In an XML element its markup is escaped.
void PutToken(STEPtransfer* t, std::string_view token);
void PutUpperCase(STEPtransfer* t, const char* keyword);
void PutName(STEPtransfer* t, std::uint64_t name);               // # and the number
void PutStandardQuoted(STEPtransfer* t, std::string_view text);  // in apostrophes
void PutLineEnd(STEPtransfer* t);

// The keyword of the record or part at hand, unless it has one. Every value needs it first.
void PutKeyword(STEPtransfer* t, const char* keyword);

void WriteWideText(STEPtransfer* t, const char* name, const char* text);
void WriteWideInt(STEPtransfer* t, const char* name, int value);
void WriteWideReal(STEPtransfer* t, const char* name, double value);
void WriteWideKeyword(STEPtransfer* t, const char* name, const char* keyword);
void WriteWideToken(STEPtransfer* t, const char* name, const char* token);
void WriteWideReference(STEPtransfer* t, const char* name, const STEPheader* object);
void OpenWide(STEPtransfer* t, const char* name, const char* keyword);
void CloseWide(STEPtransfer* t);

// Write a list. A null aggregate is an omitted one.
void WriteWideReferences(STEPtransfer* t, const char* name, const STEPaggr* aggr);
void WriteWideReals(STEPtransfer* t, const char* name, const STEPaggr* aggr);
void WriteWideEnumerators(STEPtransfer* t, const STEPaggr* aggr, const char** names);
void WriteWideTexts(STEPtransfer* t, const char* name, const STEPaggr* aggr);

}  // namespace steprt

#endif
