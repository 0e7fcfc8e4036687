// Reading: the driver of clear text, and the readers that a row's read function calls.
//
//   STEPheader* ReadWall(STEPtransfer* t) {
//     auto* wall = new Wall;
//     wall->name = rSTEPtext(t, "Name");   // a STEPstring, which copies it
//     wall->height = rSTEPreal(t, "Height");
//     xrSTEPref(t, "Owner", &wall->owner, kPerson, true);
//     return wall;
//   }
//
// One call for each attribute, in the order of the schema. `name` is the attribute's element in XML and required
// there; clear text does not look at it. A reader never ends the reading of a record: trouble is one report and a
// neutral value (0, false, an empty text, null), and only the count of errors tells it from a real one. What stands
// behind the trouble may then reach the wrong attributes of the record.
//
// Places that a reader is given (a reference's slot, a select, a list) must stay where they are until the transfer has
// ended: a reference to an instance further on is stored there at the end.
#ifndef STEPRT_READ_H
#define STEPRT_READ_H

#include <steprt/export.h>
#include <steprt/fwd.h>
#include <steprt/schema.h>

extern "C" {

// Reads a clear-text file (ISO 10303-21). The instances go to the current model; STEPmodel::Read is the usual caller.
//
//   name    ".stp" is added when what stands behind its last backslash has no dot
//   schema  head of the descriptor chain; null: nothing is read, the result is 1
//   check   read the DATA section only if FILE_SCHEMA names the first descriptor, in any case
//
// Gives the number of errors reported; also 1, without a report, when there is no memory for the transfer. Whatever
// happens, what was read stays. Comments, complex instances and texts over several lines are not known: a complex
// instance, or a name where a record should stand, ends the read.
STEPRT_API int STEPread(char* name, APPobject0* schema, bool check);

// ---- values ---------------------------------------------------------------------------------------------------------
// In clear text a record that ends early gives neutral values without a report, and `*` reads exactly like `$`.

// A text, without its apostrophes and with doubled ones made single; encoded characters stay as written. It lives
// until the next reader is called, so copy it at once. `$` gives the empty text in clear text. At most 256 characters
// of a clear-text text are kept, with a report from 256 on.
STEPRT_API char* rSTEPtext(STEPtransfer* t, const char* name);

// `$` is an error for both in clear text; XML has no bad number, `$` is 0. What does not fit an int saturates. In clear
// text a token that is no number, `$` too, is left for the next reader, so the values behind it shift. A number that
// may be omitted is therefore read by rSTEPsel and written by wSTEPsel.
STEPRT_API int rSTEPint(STEPtransfer* t, const char* name);
STEPRT_API double rSTEPreal(STEPtransfer* t, const char* name);  // takes an integer as well

// In clear text `$` is a value that is not there. In XML it is an unknown one, and so is a missing element: both are
// reported, with the same result.
STEPRT_API bool rSTEPbool(STEPtransfer* t, const char* name);  // .T. or .F., in any case; `$` is false
STEPRT_API int rSTEPlog(STEPtransfer* t, const char* name);    // .T. 1, .F. 0, .U. and `$` -1

// The position in `names`, which carry their dots, compared in any case; `$` is 0.
STEPRT_API int rSTEPenum(STEPtransfer* t, const char* name, const char** names, int count);

// A value of any kind into a select; what it held is not released. A reference's type is not tested.
STEPRT_API void rSTEPsel(STEPtransfer* t, const char* name, STEPselect* select);

// ---- references and lists ----------------------------------------------------------------------------------------
// A list reader makes the aggregate when *out is null; it is the client's from then on (see aggregate.h). Into an
// aggregate that has nodes it does not append: the first item replaces them.

// A reference into *slot. An instance of the wrong type is reported and stored all the same.
//
//   expected   the type that is required, subtypes included; negative for none
//   allowNull  not looked at: `$` is always null
STEPRT_API void xrSTEPref(STEPtransfer* t, const char* name, STEPheader** slot, int expected, bool allowNull);

// A list of references. With allowNull a `$` in the list is a node with a null value, without it an error. `$` in place
// of the list is an empty aggregate.
STEPRT_API void xrSTEPaggr(STEPtransfer* t, const char* name, STEPaggr** out, int expected, bool allowNull);

// With a null `out` these three parse and report, and store nothing. In clear text `$` in place
// of the list is an error; in XML it is a text like any other, which the list is scanned out of.

STEPRT_API void xrSTEPaggrPrim(STEPtransfer* t, const char* name, STEPaggr** out);  // numbers, as reals; `$` is 0.0

// Enumerators, as positions in `names`. It has no name, so XML cannot hold such a list: there it reads nothing and
// leaves an empty aggregate in a null *out.
STEPRT_API void xrSTEPaggrEnum(STEPtransfer* t, STEPaggr** out, const char** names, int count);

STEPRT_API void xrSTEPtextAggr(STEPtransfer* t, const char* name, STEPaggr** out);  // texts, from new char[]

}  // extern "C"

#endif
