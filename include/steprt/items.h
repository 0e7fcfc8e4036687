/// @file
/// Items: a value exactly as it is in the file, where no reader of read.h and no writer of write.h takes it. Such
/// values are typed values, nested lists, `$` for a number, binaries, and values of an entity that a client knows
/// nothing of.
///
///   if (rSTEPkind(t, "NominalValue") == STEP_TYPED) {        // NominalValue is IFCLABEL('x')
///     unit->keyword = rSTEPopen(t, "NominalValue");          // "IFCLABEL"
///     unit->text = rSTEPtext(t, nullptr);                    // 'x'
///     rSTEPclose(t);
///   }
///
///   wSTEPopen(t, "NominalValue", "IFCLABEL");
///   wSTEPtext(t, nullptr, unit->text);
///   wSTEPclose(t);
///
/// Between the brackets of an opened value all readers and writers work, in both forms, and their `name` has no
/// meaning. In XML the outermost value is the clear text of its element: an element NominalValue with the text
/// `IFCLABEL('x')`.
///
/// In XML, outside an opened value, `name` is the element and must not be null. One thread at a time uses the library.
#ifndef STEPRT_ITEMS_H
#define STEPRT_ITEMS_H

#include <steprt/export.h>
#include <steprt/fwd.h>

/// What the next value is.
enum STEPitem : int {
  STEP_END = 0,      ///< no further value: the end of the record, of the opened value or of the file
  STEP_OMITTED = 1,  ///< `$`
  STEP_DERIVED = 2,  ///< `*`
  STEP_REF = 3,      ///< #12
  STEP_INT = 4,      ///< an integer
  STEP_REAL = 5,     ///< a real
  STEP_TEXT = 6,     ///< 'text'
  STEP_ENUM = 7,     ///< .NAME.
  STEP_BINARY = 8,   ///< "1A"
  STEP_TYPED = 9,    ///< KEYWORD(...): a name with `(` directly after it, or after blanks
  STEP_LIST = 10,    ///< (...)
  STEP_OTHER = 11    ///< anything else, such as a name without brackets
};

/// The most values that can be open at a time, one in the other.
inline constexpr int STEPopenLimit = 100;

extern "C" {

/// Returns the kind of the next value and leaves the value to the next reader (ISO 10303-21, clause 7, parameters). In
/// clear text commas are passed over. In XML it is the value of the element `name`: STEP_END if that element is
/// missing or empty. XML does not mark texts, so there a text that looks like another kind is reported as that kind.
///
/// If it returns STEP_LIST and a list reader of read.h comes next, that one passes over the whole list when it refuses
/// an item, however deep its brackets are. Unasked, it may leave a part of such a list to the next readers.
STEPRT_API STEPitem rSTEPkind(STEPtransfer* t, const char* name);

/// Takes a value that is not there: reads the next value if it is `$` or `*`, and returns STEP_OMITTED or STEP_DERIVED.
/// Returns STEP_END, and reads nothing, for every other value and where there is none. It is the cheap question in
/// front of a reader that does not tell `$` from a value. In XML a missing element is STEP_OMITTED, and nothing is
/// read.
STEPRT_API STEPitem rSTEPnull(STEPtransfer* t, const char* name);

/// Opens a typed value or a list. Every value that is opened must be closed with rSTEPclose; the library closes those
/// that a read function leaves open.
///
/// Returns the keyword of a typed value, at most 256 characters, or the empty text for a list. The text is valid until
/// the next reader is called. Returns null, and reads nothing, if the next value is neither. If STEPopenLimit values
/// are open, the value is reported ("Too deep nesting") and passed over, and the result is null. In XML the result is
/// null also when memory runs out, which is reported.
STEPRT_API const char* rSTEPopen(STEPtransfer* t, const char* name);

/// Passes over what is left of the value that was opened last, its closing bracket included. The `;` of the record and
/// the end of the file close it too. Does nothing if no value is open.
STEPRT_API void rSTEPclose(STEPtransfer* t);

/// Passes over the next value, whatever its kind and however deep its brackets are. Does nothing at STEP_END. In XML it
/// does nothing outside an opened value, because elements are found by their names.
STEPRT_API void rSTEPskip(STEPtransfer* t, const char* name);

/// Reads a value that is one token, and returns its text as it is in the file: 12.50, .T. or $, a reference with its
/// number sign, a binary with its quotation marks. Of a text it returns what rSTEPtext returns. The result is valid
/// until the next reader is called and has at most 256 characters, with a report from 256 on. For STEP_TYPED, STEP_LIST
/// and STEP_END it is the empty text, and nothing is read. In XML, outside an opened value, it is the text of the
/// element.
STEPRT_API const char* rSTEPtoken(STEPtransfer* t, const char* name);

/// Reports `message` and passes over the next value, for a value that is of no use to the caller. At STEP_END it
/// reports and reads nothing; where the record's `;` came early it does not report, as the readers of read.h do not.
/// Returns true. In XML, outside an opened value, it does nothing and returns false: a text can be read as any value
/// there.
STEPRT_API bool rSTEPrefuse(STEPtransfer* t, const char* name, const char* message);

/// Begins a typed value, or a list if `keyword` is null. The writers that follow write its members, until wSTEPclose.
/// In XML, outside an opened value, `name` is the element and must stay valid until wSTEPclose.
STEPRT_API void wSTEPopen(STEPtransfer* t, const char* name, const char* keyword);

/// Ends the value that was begun last. The library ends those that a write function leaves open. Does nothing if none
/// is open.
STEPRT_API void wSTEPclose(STEPtransfer* t);

/// Writes a token as it is: $, *, or a binary with its quotation marks. Null is written as $. The caller answers for
/// its form. In XML, outside an opened value, it is the text of the element `name`.
STEPRT_API void wSTEPtoken(STEPtransfer* t, const char* name, const char* token);

}  // extern "C"

#endif
