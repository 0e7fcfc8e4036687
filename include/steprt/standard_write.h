/// @file
/// Writing ISO 10303-21 as it is published, where STEPmodel::Write writes the library's own form of it.
///
///     STEPfileHeader header;
///     header.author.Add("Ada");
///     if (model.WriteStandard("plant.stp", &header) < 0) ...
///
/// The same rows and write functions serve both. What differs is how the writers of write.h and items.h print:
///
///   - wSTEPreal and xwSTEPaggrPrim write as few digits as bring the same double back, always with a point: `2.5`,
///     `12.`, `1.E-07`. So a list of integers needs wSTEPopen and wSTEPint. A real that is not finite is reported
///     ("Real is not finite") and written as `$`.
///   - Texts are printable ASCII. A directive that is well-formed is written as it is, a lone backslash as two. UTF-8,
///     control characters and bytes that are no UTF-8, which count as ISO 8859-1, become directives (encoding.h).
///   - Keywords and enumerators are in upper case.
///   - A null aggregate is `$`, as an omitted list of record.h is. Without members it is `()`.
///   - A reference to a part is one to its complex instance. A reference to an instance that the file does not have is
///     `$`; each such instance is reported once ("Reference to object that is not in the file").
///   - A complex instance (standard.h) is written with its parts, in their order: `#1=(A()B(1)C($));`.
///
/// The names of the records are 1, 2, 3 and so on in the order of the model. A line ends between two tokens, before the
/// one that would go beyond column 72. No token is broken, so one of more than 72 characters has a line of its own.
///
/// The file appears under its name only when it is whole. Until then it is beside it, in the same folder, which must
/// allow that. After a failure the old file is as it was. The permissions of an old file stay, and a symbolic link
/// stays a link. A device or a pipe is written directly.
///
/// One thread at a time uses the library.
#ifndef STEPRT_STANDARD_WRITE_H
#define STEPRT_STANDARD_WRITE_H

#include <steprt/export.h>
#include <steprt/fwd.h>

#include <cstdint>

/// What a write can be told.
struct STEPwriteOptions {
  /// Instances of the type of this row are written by its write function, also if the schema has no such row. The
  /// function calls wSTEPkeyword before it writes a value. Null: there are none.
  const APPentity* unknown = nullptr;

  /// Returns the name of an instance's record, which is not 0 and no other instance's. Null: the names are 1, 2, 3 and
  /// so on. It is called for each instance that is written, before the first record.
  std::uint64_t (*nameOf)(STEPheader* object, void* context) = nullptr;

  void* context = nullptr;  ///< for nameOf
};

extern "C" {

/// The driver of STEPmodel::WriteStandard, as STEPwrite is that of STEPmodel::Write.
///
/// Returns the number of records, or -1 if the file cannot be created ("Can't create file"), if a write fails ("error
/// writing file") or when memory runs out ("Out of memory"). Also returns -1, without a report, for a null name or
/// schema, and when memory runs out for the transfer.
///
/// An instance whose type has no row is reported ("Unknown STEP object") and left out. So is such a part of a complex
/// instance, and a complex instance none of whose parts can be written. An instance or part whose row has no write
/// function is left out without a report. Afterwards STEPheader::number is the name of the record of each instance that
/// was written, or 0 if it is beyond 31 bits.
///
/// @param fileName  ".stp" is added if it has no dot after its last backslash
/// @param header    the fields of the header, which are encoded like texts of records. The implementation level is
///                  always '2;1'. A field that is not set becomes: the local time, as in 2026-11-25T16:29:00+01:00; the
///                  file's name without its folder; the version of the library as the preprocessor; the name of the
///                  schema; otherwise ''. Null: no field is set
/// @param first     the first instance; STEPheader::next links the others. Null writes a file without records
/// @param schema    the first descriptor of a chain
/// @param options   null: a new STEPwriteOptions
STEPRT_API int STEPwriteStandard(const char* fileName, const STEPfileHeader* header, STEPheader* first,
                                 APPobject0* schema, const STEPwriteOptions* options);

/// Whether the write function is called for a part of a complex instance. It must then write the attributes that the
/// entity declares itself, and no others. The classes of record.h do.
STEPRT_API bool wSTEPispart(STEPtransfer* t);

/// Whether the file is written as ISO 10303-21 is published, for a write function that prints something itself.
STEPRT_API bool wSTEPisstandard(STEPtransfer* t);

/// Says the keyword of the record or part that is being written, in place of that of its row. It must come before every
/// value, and the text must stay valid until the write function returns. It does nothing in the library's own form.
STEPRT_API void wSTEPkeyword(STEPtransfer* t, const char* keyword);

}  // extern "C"

#endif
