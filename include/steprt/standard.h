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
#include <steprt/fwd.h>
#include <steprt/instance.h>

#include <cstddef>

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
/// A part whose keyword has no row, or a row without a read function, is reported ("Unknown entity %s"). It is kept as
/// a plain STEPheader of type -1 with its keyword, of at most 63 characters, as the id; its values are passed over.
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

/// The driver of STEPmodel::ReadStandard, as STEPread is that of STEPmodel::Read: new instances join the current model.
/// Returns the number of reports, or 1 for a null name or schema.
/// @param name     the file, with ".stp" if the name has no dot after its last backslash; with `bytes` only its name in
///                 reports
/// @param bytes    the content of a file in memory, which must not change meanwhile; null: the file is opened
/// @param size     the count of bytes
/// @param schema   the first descriptor of a chain
/// @param options  null: a new STEPreadOptions
STEPRT_API int STEPreadStandard(const char* name, const char* bytes, std::size_t size, APPobject0* schema,
                                const STEPreadOptions* options);

}  // extern "C"

#endif
