/// @file
/// Reading: the driver for clear text, and the attribute readers that a row's read function calls.
///
///     STEPheader* ReadWall(STEPtransfer* t) {
///       auto* wall = new Wall;
///       wall->name = rSTEPtext(t, "Name");   // a STEPstring, which copies the text
///       wall->height = rSTEPreal(t, "Height");
///       xrSTEPref(t, "Owner", &wall->owner, kPerson, true);
///       return wall;
///     }
///
/// Call one reader for each attribute, in the order of the schema. The same calls read clear text and XML. `name` is
/// the name of the attribute's element in XML: never pass null if documents are read. Clear text does not use it.
///
/// A reader never ends a record. If it cannot use what it finds, it reports that and returns a neutral value: 0, false,
/// an empty text, null. Only the count of reports distinguishes this from a real value. In clear text, later readers of
/// the record may then receive values of other attributes. After a record's `;`, the remaining readers of the record
/// return neutral values, store nothing and report nothing.
///
/// A reference, a select or a list that a reader has filled must stay at its address until the transfer ends:
/// references to instances further on in the file are stored at that time.
///
/// One thread at a time uses the library.
#ifndef STEPRT_READ_H
#define STEPRT_READ_H

#include <steprt/export.h>
#include <steprt/fwd.h>
#include <steprt/schema.h>

extern "C" {

/// Reads a clear-text file (ISO 10303-21). Use STEPmodel::Read unless you want no model.
///
/// The instances join the current model. If there is none, they have no model and nobody destroys them. Returns the
/// number of reports, 0 for a clean read. Returns 1 without a report when memory runs out for the transfer, and if
/// `name` or `schema` is null. Whatever is reported, instances that were read remain.
///
/// Comments, complex instances and texts over several lines are not supported. A complex instance, or a word in place
/// of a record, ends the read with one report.
/// @param name    the file; ".stp" is added if it has no dot after its last backslash
/// @param schema  the first descriptor of a chain
/// @param check   read a DATA section only if FILE_SCHEMA names the first descriptor, case-insensitively
STEPRT_API int STEPread(char* name, APPobject0* schema, bool check);

/// @name Values
/// `*` reads exactly as `$`.
/// @{

/// Reads a text, without its apostrophes and with doubled ones made single. Encoded characters (ISO 10303-21:2002,
/// 6.3.3) remain as they are in the file. Never returns null.
///
/// The text is valid until the next reader is called: copy it at once. Clear text keeps at most 256 characters, and
/// reports a text of 256 or more. `$` is an empty text in clear text, and the text `$` in XML.
STEPRT_API char* rSTEPtext(STEPtransfer* t, const char* name);

/// Reads an integer. One that is too large or too small becomes the greatest or the least int.
///
/// In clear text anything else is reported and remains for the next reader, `$` too, so the values after it shift. If
/// the number may be omitted, ask rSTEPnull of items.h first, and write the `$` with wSTEPtoken:
///
///     wall->hasHeight = rSTEPnull(t, "Height") == STEP_END;
///     if (wall->hasHeight) wall->height = rSTEPint(t, "Height");
///
/// In XML nothing is reported: the number ends where the digits end, and `$` is 0.
STEPRT_API int rSTEPint(STEPtransfer* t, const char* name);
STEPRT_API double rSTEPreal(STEPtransfer* t, const char* name);  ///< Reads a real or an integer. Otherwise as rSTEPint.

/// Reads `.T.` or `.F.`, case-insensitively. `$` is false; in XML, `$` and a missing element are reported too.
STEPRT_API bool rSTEPbool(STEPtransfer* t, const char* name);
/// Reads `.T.` as 1, `.F.` as 0, `.U.` as -1. `$` is -1; in XML, `$` and a missing element are reported too.
STEPRT_API int rSTEPlog(STEPtransfer* t, const char* name);

/// Reads an enumerator and returns its position in `names`, an array of `count` texts (`const char*[]`). The names
/// include their dots and are compared case-insensitively. `$` is 0; in XML, `$` and a missing element are reported
/// too.
STEPRT_API int rSTEPenum(STEPtransfer* t, const char* name, const char** names, int count);

/// Reads an integer, a real, a text or a reference of any type. Does not release what the select had.
///
/// `$` becomes a null instance. Anything else leaves the select unchanged: an enumerator or a typed value, with a
/// report in clear text and without one in XML. XML has no apostrophes: a text that looks like a number or a reference
/// becomes one, and one that begins with a letter changes nothing.
STEPRT_API void rSTEPsel(STEPtransfer* t, const char* name, STEPselect* select);

/// @}

/// @name References and lists
/// The three list readers after xrSTEPaggr create or fill `*out` as that one does. With a null `out` they read and
/// report, but store nothing. `$` in place of their list is reported in clear text; in XML it is a text like any other.
/// @{

/// Reads a reference into `*slot`, which should be null before.
///
/// `$` is null. An instance that could not be read is reported, and null is stored. Anything that is no reference is
/// reported and stores nothing in clear text; in XML it is null without a report. An instance of a wrong type is
/// reported and stored all the same: check its type before you cast. A reference to an instance further on is stored
/// when the transfer ends; if there is no such instance, it is reported then, with the line that the read has reached,
/// and `*slot` does not change.
/// @param t          the transfer
/// @param name       the attribute
/// @param slot       the address of a `STEPheader*`, not of a pointer to a derived class; never null
/// @param expected   the required type, which may have subtypes; negative for any type
/// @param allowNull  not used: `$` is always allowed
STEPRT_API void xrSTEPref(STEPtransfer* t, const char* name, STEPheader** slot, int expected, bool allowNull);

/// Reads a list of references into `*out`.
///
/// If `*out` is null, as it should be, the reader creates an aggregate, which then belongs to the client. If the
/// aggregate has nodes already, the first item replaces them and they leak; a list without items, and `$` in its place,
/// keep them.
///
/// `$` in place of the list is an empty list. A null item is a node with a null value if `allowNull` is set. Otherwise
/// it is reported and ends the list in clear text, and is left out in XML. A reference to an instance that could not be
/// read is reported and left out. Wrong types and instances further on are treated as by xrSTEPref.
STEPRT_API void xrSTEPaggr(STEPtransfer* t, const char* name, STEPaggr** out, int expected, bool allowNull);

/// Reads a list of numbers, as reals. A `$` in the list is 0.0.
STEPRT_API void xrSTEPaggrPrim(STEPtransfer* t, const char* name, STEPaggr** out);

/// Reads a list of enumerators, as positions in `names`. An unknown one is reported and becomes 0; `$` becomes 0. XML
/// cannot contain such a list, because it has no name: there the result is an empty list.
STEPRT_API void xrSTEPaggrEnum(STEPtransfer* t, STEPaggr** out, const char** names, int count);

/// Reads a list of texts. Each is from `new char[]`: release them before the nodes. A `$` in the list ends it with a
/// report.
STEPRT_API void xrSTEPtextAggr(STEPtransfer* t, const char* name, STEPaggr** out);
/// @}

}  // extern "C"

#endif
