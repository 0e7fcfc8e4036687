// Writing: the driver of clear text, and the writers that a row's write function calls.
//
//   void WriteWall(STEPtransfer* t, STEPheader* object) {
//     auto* wall = static_cast<Wall*>(object);
//     wSTEPtext(t, "Name", wall->name);
//     wSTEPreal(t, "Height", wall->height);
//     xwSTEPref(t, "Owner", wall->owner);
//   }
//
// One call for each attribute, in the order of the schema. `name` is the attribute's element in XML, where it is
// required and goes out unchanged; clear text does not look at it. The writers see to commas and tags. They report
// nothing: a stream that fails is found after the record.
#ifndef STEPRT_WRITE_H
#define STEPRT_WRITE_H

#include <steprt/export.h>
#include <steprt/fwd.h>

extern "C" {

// Writes a chain of instances as a clear-text file (ISO 10303-21). While it runs, the file is locked (an advisory
// lock): another writer to it, of XML too, reports "Can't create file" and leaves it whole.
//
//   fileName  ".stp" is added for opening when what stands behind its last backslash has no dot
//   remark    the last text of FILE_DESCRIPTION, unchanged
//   first     head of the chain, linked by STEPheader::next; null writes the frame alone
//   schema    head of the descriptor chain; null: nothing is written, the result is -1
//
// Gives the number of records written, or -1 when there is no memory for the transfer, when the file cannot be made
// ("Can't create file"; a FIFO that nobody reads is such a one), or when the stream failed ("error writing file"). An
// instance whose type has no row costs "Unknown STEP object" and is left out; one whose row has no write function is
// left out in silence. Numbers are given out at first need, so they do not rise in the order of the file. Failures
// behind the last record are not seen.
//
// A reference to an instance outside of the chain, or to one without a write function, gets a number that no record of
// the file bears; the former may still hold the number of an earlier file, which another instance bears in this one.
STEPRT_API int STEPwrite(char* fileName, const char* remark, STEPheader* first, APPobject0* schema);

// The version that a file's header names. Constant.
STEPRT_API const char* STEPversion();

// ---- values ---------------------------------------------------------------------------------------------------------
// Reals are written with six significant digits. An infinity or a NaN is written as a word: inf, -inf, nan or -nan. In
// clear text the two with a sign are read back as numbers, and those without are names, which no reader of numbers
// takes. In XML rSTEPreal and xrSTEPaggrPrim read back all four.

STEPRT_API void wSTEPtext(STEPtransfer* t, const char* name, const char* text);  // null is written as `$`
// Without a name these two print a bare number in XML too, where readers drop it.
STEPRT_API void wSTEPint(STEPtransfer* t, const char* name, int value);
STEPRT_API void wSTEPreal(STEPtransfer* t, const char* name, double value);
STEPRT_API void wSTEPbool(STEPtransfer* t, const char* name, bool value);
STEPRT_API void wSTEPlog(STEPtransfer* t, const char* name, int value);  // 1, 0; anything else is .U.

// `value` must be a position in `names`, which carry their dots.
STEPRT_API void wSTEPenum(STEPtransfer* t, const char* name, int value, const char** names);

// By the kind held; `$` for none, for a null instance and for a null select. The file does not say which branch of the
// SELECT it is.
STEPRT_API void wSTEPsel(STEPtransfer* t, const char* name, STEPselect* select);

// ---- references and lists ----------------------------------------------------------------------------------------

STEPRT_API void xwSTEPref(STEPtransfer* t, const char* name, STEPheader* object);  // null is written as `$`

// A null aggregate is written like an empty one.
STEPRT_API void xwSTEPaggr(STEPtransfer* t, const char* name, STEPaggr* aggr);
STEPRT_API void xwSTEPaggrPrim(STEPtransfer* t, const char* name, STEPaggr* aggr);
STEPRT_API void xwSTEPaggrEnum(STEPtransfer* t, STEPaggr* aggr, const char** names);  // XML cannot hold it: nothing
STEPRT_API void xwSTEPtextAggr(STEPtransfer* t, const char* name, STEPaggr* aggr);

}  // extern "C"

#endif
