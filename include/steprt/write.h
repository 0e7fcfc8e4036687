/// @file
/// Writing: the driver for clear text, and the attribute writers that a row's write function calls.
///
///     void WriteWall(STEPtransfer* t, STEPheader* object) {
///       auto* wall = static_cast<Wall*>(object);
///       wSTEPtext(t, "Name", wall->name);
///       wSTEPreal(t, "Height", wall->height);
///       xwSTEPref(t, "Owner", wall->owner);
///     }
///
/// Call one writer for each attribute, in the order in which the read function reads them. The same calls write clear
/// text and XML. `name` becomes the attribute's element in XML, unchanged: it must be an XML name of at most 63
/// characters, and null only where a comment says so. Clear text does not use it. The writers add commas, brackets and
/// tags. They report nothing: the driver detects a failed write after the record.
///
/// One thread at a time uses the library.
#ifndef STEPRT_WRITE_H
#define STEPRT_WRITE_H

#include <steprt/export.h>
#include <steprt/fwd.h>

extern "C" {

/// Writes a chain of instances as a clear-text file (ISO 10303-21).
///
/// Returns the number of records. Returns -1 if the file cannot be created ("Can't create file"), which includes a FIFO
/// that nobody reads, or if a write fails ("error writing file"). A failure after the last record, or in a file without
/// records, is not detected. Also returns -1, without a report, when memory runs out for the transfer or if `fileName`
/// or `schema` is null.
///
/// An instance whose type has no row is reported ("Unknown STEP object") and left out. One whose row has no write
/// function is left out without a report. Numbers are assigned at the first use, so they need not be in ascending
/// order. A reference to an instance that is left out, or that is not in the chain, gets a number without a record; an
/// instance outside of the chain may keep the number of an earlier file, which another record of this file may have.
///
/// The file is locked while it is open (an advisory lock). Meanwhile any other writer of the library, of XML too,
/// reports "Can't create file" and does not change it.
/// @param fileName  ".stp" is added if it has no dot after its last backslash
/// @param remark    the last text of FILE_DESCRIPTION, written unchanged; null counts as empty
/// @param first     the first instance; STEPheader::next links the others. Null writes a file without records
/// @param schema    the first descriptor of a chain
STEPRT_API int STEPwrite(char* fileName, const char* remark, STEPheader* first, APPobject0* schema);

/// Returns the version text that written files contain. It is constant and not the version of the library: see
/// version.h.
STEPRT_API const char* STEPversion();

/// @name Values
/// @{

/// Writes a text; null as `$`. Clear text doubles apostrophes and changes nothing else; XML escapes `&`, `<` and `>`.
STEPRT_API void wSTEPtext(STEPtransfer* t, const char* name, const char* text);

/// Writes an integer. In XML, a null name writes it without an element, where readers ignore it.
STEPRT_API void wSTEPint(STEPtransfer* t, const char* name, int value);

/// Writes a real with six significant digits, a whole one without a point. A null name is as in wSTEPint.
///
/// Infinities and NaN are written as inf, -inf, nan and -nan. Number readers take all four in XML, but in clear text
/// only those with a sign: the others are names there.
STEPRT_API void wSTEPreal(STEPtransfer* t, const char* name, double value);

STEPRT_API void wSTEPbool(STEPtransfer* t, const char* name, bool value);  ///< Writes `.T.` or `.F.`
STEPRT_API void wSTEPlog(STEPtransfer* t, const char* name, int value);    ///< Writes 1 `.T.`, 0 `.F.`, others `.U.`

/// Writes the enumerator at position `value` of `names`, which include their dots. The library does not check `value`.
STEPRT_API void wSTEPenum(STEPtransfer* t, const char* name, int value, const char** names);

/// Writes the value by its kind, without a sign of which kind it is. Writes `$` for a select without a value, for a
/// null instance and for a null select.
STEPRT_API void wSTEPsel(STEPtransfer* t, const char* name, STEPselect* select);

/// @}

/// @name References and lists
/// A null aggregate is written as an empty list.
/// @{

STEPRT_API void xwSTEPref(STEPtransfer* t, const char* name, STEPheader* object);  ///< Writes a reference; null as `$`.
STEPRT_API void xwSTEPaggr(STEPtransfer* t, const char* name, STEPaggr* aggr);     ///< Writes references; null as `$`.
STEPRT_API void xwSTEPaggrPrim(STEPtransfer* t, const char* name, STEPaggr* aggr);  ///< Writes reals.
/// Writes enumerators. In XML it writes nothing, because the list has no name.
STEPRT_API void xwSTEPaggrEnum(STEPtransfer* t, STEPaggr* aggr, const char** names);
/// Writes texts. A null text is written as `$`, which xrSTEPtextAggr does not take in clear text.
STEPRT_API void xwSTEPtextAggr(STEPtransfer* t, const char* name, STEPaggr* aggr);
/// @}

}  // extern "C"

#endif
