/// @file
/// ISO 10303-21 as it is published, editions 1 to 3, where STEPmodel::Read takes the library's own form of it.
///
///     plant::Model model;
///     STEPreadOptions options;
///     options.check = true;
///     if (model.ReadStandard("plant.stp", &options) != 0) ...
///
/// It takes what Read takes, and also: a byte order mark of UTF-8; comments between any two tokens; texts and binaries
/// over several lines and of any length; instance names up to 18446744073709551615; user-defined keywords; several DATA
/// sections with parameters; brackets inside a value that is passed over. Nothing but the end of the file ends the
/// read.
///
/// Each of these costs one report, and the read goes on after it:
///   - "Unknown entity !KEY": a record with a user-defined keyword is passed over.
///   - "Section ANCHOR is not read", and the same for REFERENCE and SIGNATURE: the sections of edition 3.
///   - "Integer out of range": the nearest integer of 32 bits is read.
///
/// A complex instance, `#1=(A()B(1)C($));`, becomes one STEPcomplex with its parts. See there for what a read function
/// has to do.
///
/// One thread at a time uses the library.
#ifndef STEPRT_STANDARD_H
#define STEPRT_STANDARD_H

#include <steprt/export.h>
#include <steprt/file_header.h>
#include <steprt/fwd.h>
#include <steprt/instance.h>

#include <cstddef>
#include <cstdint>

/// How bad a report of a standard read is.
enum STEPseverity : int {
  STEP_ERROR = 1,   ///< a fault in the file, or something lost
  STEP_WARNING = 2  ///< what the file may have and the library or the schema does not: an entity, a section
};

/// A report of a standard read, for a program. All texts are valid only during the call.
struct STEPdiagnostic {
  STEPseverity severity;   ///< how bad it is
  const char* code;        ///< a word that never changes, such as "missing-integer"; a list is in docs/format.md
  const char* message;     ///< as the error procedure receives it, without file, line and entity
  const char* file;        ///< the name of the file
  int line;                ///< of the token at fault, from 1
  int column;              ///< of its first byte, in bytes from 1; 0 if there is no such place
  std::uint64_t offset;    ///< of its first byte in the file
  std::uint64_t instance;  ///< the name of the record, of the one that refers for a reference; 0 outside of records
  const char* keyword;     ///< of that record or part; null if there is none
  const char* attribute;   ///< that a reader was called for; null if there is none, or if it was called without a name
};

/// What a read can be told. A new one reads everything.
struct STEPreadOptions {
  /// Read a DATA section only if FILE_SCHEMA names the schema of the model. The object identifier after the name does
  /// not count: 'PLANT { 1 0 10303 99 }' names PLANT (clause 8.2.3).
  bool check = false;

  /// The bytes that are kept of a text, word or binary; 256 if it is less. What is beyond is dropped, with the report
  /// "Too long element, truncated".
  std::size_t tokenLimit = std::size_t{1} << 26;

  /// Receives the header of the file; null: nothing does. It is emptied first. A field that is missing or no text is
  /// reported and stays empty, which is not reported without a header to fill. FILE_POPULATION, SECTION_LANGUAGE,
  /// SECTION_CONTEXT and SCHEMA_POPULATION are passed over.
  STEPfileHeader* header = nullptr;

  /// The row whose read function is called for each record, and each part of a complex instance, of an entity without a
  /// row, also for one with a user-defined keyword. Nothing is reported of them. rSTEPkeyword tells the function the
  /// entity. The part of an entity whose row has no read function comes here as well. A reference to an instance of the
  /// row's type is never reported as one of a wrong type, because nothing is known of it. AnyRecord of any_record.h has
  /// such a row.
  const APPentity* unknown = nullptr;

  /// Receives each report after the error procedure. For references it keeps the names that readers are called with:
  /// they must stay valid until the end of the read.
  void (*diagnose)(const STEPdiagnostic* diagnostic, void* context) = nullptr;

  /// Is called about every 64 KiB between records, and once at the end, with the bytes read so far and those of the
  /// file; these are 0 if they are not known. If it returns false, the read ends with the report "Cancelled". What was
  /// read stays; a reference to what was not read is null.
  bool (*progress)(std::uint64_t done, std::uint64_t total, void* context) = nullptr;

  void* context = nullptr;  ///< passed to diagnose and progress
};

/// An instance of several entities at once (clause 11.2.5.3, external mapping). Each part is an instance of the class
/// of its keyword and holds the attributes that this entity declares itself, without those of its supertypes: these are
/// in other parts.
///
/// The complex instance is on the list of its model, and its parts are not. It owns the parts: never destroy one. A
/// reference takes it if one of its parts is of the expected type. Ref::Get and List of record.h return the part of
/// just that type, or else the first part of a subtype. Model::All finds every part that is of the class, so it may
/// find several of one complex instance.
///
/// WriteStandard writes a complex instance. Write and WriteXml report it ("Unknown STEP object") and leave it out. As
/// for every instance without a row, a reference to it names a record that the file does not have.
///
/// Without the option `unknown`, a part whose keyword has no row, or a row without a read function, is reported
/// ("Unknown entity %s"). It is kept as a plain STEPheader of type -1 with its keyword, of at most 63 characters, as
/// the id; its values are passed over.
class STEPRT_API STEPcomplex : public STEPheader {
 public:
  static constexpr int kType = -2;  ///< the type of every complex instance, which no row has

  STEPcomplex();            ///< Without parts. It joins the current model.
  ~STEPcomplex() override;  ///< Destroys the parts.
  STEPcomplex(const STEPcomplex&) = delete;
  STEPcomplex& operator=(const STEPcomplex&) = delete;

  /// The first part, or null. STEPheader::NextHead returns the next one. The order is that of the file.
  STEPheader* Parts() const { return parts_; }

  /// Appends a part and owns it from now on. It must come from `new` and be on no list: create it while no model is
  /// current. It gets the model of the complex instance.
  void Add(STEPheader* part);

 private:
  STEPheader* parts_ = nullptr;
  STEPheader** tail_ = &parts_;
};

extern "C" {

/// Whether the read function is called for a part of a complex instance. It must then read the attributes that the
/// entity declares itself, and no others. The classes of record.h do. While it runs, no model is current, so that the
/// part joins none.
STEPRT_API bool rSTEPispart(STEPtransfer* t);

/// The keyword of the record or part that is read. In a standard read it is that of the row, or for an entity without a
/// row the whole word in the file, and valid until the end of the read. In other reads it has at most 63 characters
/// and is valid during the call of the read function.
STEPRT_API const char* rSTEPkeyword(STEPtransfer* t);

/// The name of the instance that is read: 12 for #12. Returns 0 in other reads than a standard one.
STEPRT_API std::uint64_t rSTEPinstance(STEPtransfer* t);

/// What the read function of an abstract entity does when it is not called for a part: reports "Syntax" and passes over
/// the record; in XML, does nothing. Returns null.
STEPRT_API STEPheader* rSTEPabstract(STEPtransfer* t);

/// The driver of STEPmodel::ReadStandard, as STEPread is that of STEPmodel::Read: new instances join the current model.
/// Returns the number of reports, or 1 for a null name or schema.
/// @param name     the file, with ".stp" if the name has no dot after its last backslash; with `bytes` only its name in
///                 reports, where an empty one is "memory"
/// @param bytes    the content of a file in memory, which must not change meanwhile; null: the file is opened
/// @param size     the count of bytes
/// @param schema   the first descriptor of a chain
/// @param options  null: a new STEPreadOptions
STEPRT_API int STEPreadStandard(const char* name, const char* bytes, std::size_t size, APPobject0* schema,
                                const STEPreadOptions* options);

}  // extern "C"

#endif
