/// @file
/// ISO 10303-21 as it is published, editions 1 to 3, where STEPmodel::Read takes the library's own form of it.
///
///     plant::Model model;
///     STEPreadOptions options;
///     options.check = true;
///     if (model.ReadStandard("plant.stp", &options) != 0) ...
///
/// It takes what Read takes, and also: a byte order mark of UTF-8; comments between any two tokens; texts over several
/// lines, and texts and binaries of any length; instance names up to 18446744073709551615; user-defined keywords;
/// several DATA sections with parameters; brackets inside a value that is passed over. Nothing but the end of the file
/// ends the read.
///
/// Each of these costs one report, and the read goes on after it:
///   - "Complex instance": the record `#1=(A()B());` is passed over, and its name means no instance.
///   - "Unknown entity !KEY": a record with a user-defined keyword is passed over.
///   - "Section ANCHOR is not read", and the same for REFERENCE and SIGNATURE: the sections of edition 3.
///   - "Integer out of range": the nearest integer of 32 bits is read.
///
/// One thread at a time uses the library.
#ifndef STEPRT_STANDARD_H
#define STEPRT_STANDARD_H

#include <steprt/export.h>
#include <steprt/fwd.h>

#include <cstddef>

/// What a read can be told. A new one reads everything.
struct STEPreadOptions {
  /// Read a DATA section only if FILE_SCHEMA names the schema of the model. The object identifier after the name does
  /// not count: 'PLANT { 1 0 10303 99 }' names PLANT (clause 8.2.3).
  bool check = false;

  /// The bytes that are kept of a text, word or binary; 256 if it is less. What is beyond is dropped, with the report "Too long element,
  /// truncated".
  std::size_t tokenLimit = std::size_t{1} << 26;
};

extern "C" {

/// The driver of STEPmodel::ReadStandard, as STEPread is that of STEPmodel::Read: new instances join the current model.
/// Returns the number of reports, or 1 for a null name or schema.
/// @param name     the file, with ".stp" if the name has no dot after its last backslash; with `bytes` only its name in
///                 reports
/// @param bytes    the content of a file in memory, which must not change meanwhile; null: the file is opened
/// @param size     the count of bytes
/// @param options  null: a new STEPreadOptions
STEPRT_API int STEPreadStandard(const char* name, const char* bytes, std::size_t size, APPobject0* schema,
                                const STEPreadOptions* options);

}  // extern "C"

#endif
