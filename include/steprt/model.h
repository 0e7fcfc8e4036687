/// @file
/// A model: a population of instances of one schema, and its transfers to and from files.
///
///     class Building : public STEPmodel {
///      public:
///       Building() { AppObj(&buildingSchema); }
///     };
///     Building model;
///     if (model.Read(false, path) != 0) Warn();   // path is a char*
///
/// A model destroys the instances on its list with `delete`. It does not own its schema. One thread at a time uses the
/// library: the process has one current model, and nothing is locked.
#ifndef STEPRT_MODEL_H
#define STEPRT_MODEL_H

#include <steprt/export.h>
#include <steprt/fwd.h>

#include <cstddef>

/// A population of instances of one schema. Derive a class that binds it to a descriptor by AppObj.
class STEPRT_API STEPmodel {
 public:
  /// An empty model without a schema. It becomes the current model.
  /// @param errorLimit  the budget of ErrShow for each transfer
  explicit STEPmodel(int errorLimit = 10);

  /// A second, empty population of the schema of `other`. It does not become the current model. It uses the schema's
  /// index and never drops it. If `other` is null, the model has no schema.
  explicit STEPmodel(STEPmodel* other);

  /// Copies all fields, to look at them. The instances still belong to the source: the copy's destructor and its Delete
  /// do not destroy them. Add none to the copy, and destroy it before them. A copy that is not `shared` drops the
  /// schema's index when it is destroyed, for the source too.
  STEPmodel(const STEPmodel& other);

  /// Destroys the instances. Then drops the schema's index, whoever built it, unless this model was made from another
  /// one. It does not change the current model: if that is this model, set another one, or null, before you create an
  /// instance without a model, call AutoId, or let an error procedure ask for the current model.
  virtual ~STEPmodel();

  /// Copies all fields, as the copy constructor does. Does not destroy the instances that the target had.
  STEPmodel& operator=(const STEPmodel& other);

  char* Name();                 ///< The name of the file that transfers use by default.
  void Name(char* text);        ///< Copies `text`, silently truncated to 260 characters. A null text changes nothing.
  void Name(const char* text);  ///< The same.

  STEPheader* Inst();  ///< The first instance of the list, or null. STEPheader::NextHead returns the next one.
  int IsEmpty();       ///< 1 if the list is empty, otherwise 0.

  /// Moves an instance to the end of this model's list, from the list of its own model if it has one. Null does
  /// nothing.
  void Insert(STEPheader* object);

  /// Removes an instance from the list by a walk from the first, and does not destroy it. Does nothing if the instance
  /// is not on the list. The instance still names this model: destroy it before the model, or Insert it into another
  /// one.
  void RmInst(STEPheader* object);

  /// Destroys all instances and restarts the ids of GetEntId at 1. Name, schema and flags remain.
  void Delete();

  STEPheader* FindFirst(int type);  ///< The first instance of exactly this type, or null.

  /// Whether the model was marked as changed since the last transfer. Only STEPheader::Changed and SetChanged mark it:
  /// constructing, inserting, removing and deleting instances does not. A transfer clears the mark, a failed one too.
  bool Changed();
  void SetChanged(bool value);  ///< Sets or clears that mark.

  /// Whether a transfer of this model is running. This is information for the client: no operation refuses a locked
  /// model.
  bool Locked();
  void SetLocked(bool value);  ///< Sets or clears the lock. The end of a transfer clears it.

  int GetEntId();  ///< Returns the next id of this model: 1, 2 ... 99999, then 0, 1 and so on.

  /// @name Transfers
  /// A client's function may start a transfer of the same model while another one runs. The start of the inner one
  /// refills the budget of ErrShow, and its end clears the lock of the outer one.
  /// @{

  /// Reads a clear-text file (ISO 10303-21) and appends its instances. If the model is still empty after that, reads
  /// the same file as an XML document.
  ///
  /// Returns the number of reports, 0 for a clean read, if the model has an instance after the clear-text pass.
  /// Otherwise returns the result of ReadXml: -1 for a file that is missing, that belongs to another schema, or that
  /// has no record of a known entity. So test for != 0. ReadXml lists the cases in which a 0 is not a clean read.
  /// Whatever is reported, instances that were read remain. Without a schema, nothing is read and the result is 1. When
  /// memory runs out for a pass itself, it reads and reports nothing, and its result is 1 for clear text and 0 for XML.
  ///
  /// During the read this model is locked and is the current model. Afterwards the earlier current model is set again.
  ///
  /// Opening a FIFO waits for a writer. If the model remains empty, the XML pass opens it and waits once more.
  ///
  /// @param check  read the DATA section only if FILE_SCHEMA names the schema of this model
  /// @param name   becomes the name of the model, or null for the name it has. To open the file, ".stp" is added if the
  ///               name has no dot after its last backslash; a slash does not separate
  int Read(bool check, char* name);

  /// Writes the instances as a clear-text file (ISO 10303-21). Returns the number of records, or -1; see STEPwrite.
  ///
  /// It does not change the current model, which the error procedure may ask for.
  /// @param name    the file's name, which the model does not take over; null for the name of the model
  /// @param remark  written unchanged into FILE_DESCRIPTION, so it must double its apostrophes; null counts as empty
  int Write(char* name, const char* remark);

  /// Reads an XML document from the text `text`, or from the file with the model's name if `text` is null.
  ///
  /// Returns the number of reports, 0 for a clean read. A fault that the XML parser finds sets the result to -1, as for
  /// a document that is not well formed or a file that cannot be opened. Each later report adds 1, so the result of a
  /// faulty document may be 0. It is also 0 if an instance has no `rid`, which ends the read; if the library was built
  /// without XML, after one message in a message box; and, without a report, when memory runs out for the transfer. It
  /// is 1 without a schema. The error procedure receives every fault but the last three.
  int ReadXml(const char* text);

  /// Writes the instances as an XML document. Arguments and result are those of Write. If another writer has the file
  /// open for clear text, it cannot be created; two writers of XML do not exclude each other.
  int WriteXml(char* fileName, const char* remark);

  /// Reads a file of ISO 10303-21 as it is published, and appends its instances. See standard.h for what that takes
  /// beyond the form that Read takes, and for the options. A file that begins with `<` is an XML document: one of
  /// WriteStandardXml, or in the library's own form.
  ///
  /// Returns the number of reports, 0 for a clean read. Whatever is reported, instances that were read remain. Without
  /// a schema, nothing is read and the result is 1. Model, lock and name are as in Read.
  /// @param fileName  becomes the name of the model, or null for the name it has
  /// @param options   null: a new STEPreadOptions
  int ReadStandard(const char* fileName, const STEPreadOptions* options = nullptr);

  /// The same for the content of a file in memory. The name of the model is shown in reports, and nothing is opened.
  /// Null bytes are an empty file.
  int ReadStandardFromMemory(const char* bytes, std::size_t size, const STEPreadOptions* options = nullptr);

  /// Writes the instances as a file of ISO 10303-21 as it is published. Returns the number of records, or -1. See
  /// standard_write.h, and STEPwriteStandard there for the result and the header. Model, lock and name are as in Write.
  /// @param fileName  the file's name; null for the name of the model
  /// @param header    null: the fields that the library can fill
  /// @param options   null: a new STEPwriteOptions
  int WriteStandard(const char* fileName, const STEPfileHeader* header = nullptr,
                    const STEPwriteOptions* options = nullptr);

  /// Writes the same content as an XML document, which ReadStandard reads without a loss.
  int WriteStandardXml(const char* fileName, const STEPfileHeader* header = nullptr,
                       const STEPwriteOptions* options = nullptr);

  /// Takes one from the error budget of the running transfer. Returns 1 if one was left, otherwise 0. It lets an error
  /// procedure show only the first few reports; the library always delivers all of them.
  int ErrShow();
  void ErrShow(int limit);  ///< Sets the budget of later transfers.

  /// @}

  /// @name The schema
  /// Without a schema these do nothing and return the answer for "not found". AttachDll needs no schema.
  /// @{

  /// Returns the keyword of a type, or "Unknown" if it has no row. Never uses the index.
  const char* EntityName(int type);
  bool IsSchema(char* name);  ///< Whether the first descriptor has this name, case-insensitively. False for null.

  /// Builds the index of the schema, unless it has one. All lookups and ExtractTypes then use it.
  ///
  /// Names must now be spelled as in the rows: another case is found only by chance. Rows that AddModel adds later are
  /// not found until the index is dropped and built again. When memory runs out, lookups remain without an index, or do
  /// not find single rows.
  ///
  /// The index belongs to the first descriptor and contains addresses of rows. Every model of the schema uses it. It is
  /// dropped with the first of them to be destroyed that was not made from another model. If only models made from
  /// others are left, it remains: call RemoveHash before a descriptor is unloaded.
  void PrepareHash();

  /// Loads a library and calls its entry `entryName` with this model. Returns the module, which the caller must release
  /// (see STEPlib::UnloadDLL). If `entryName` is null, it only loads.
  ///
  /// Returns null if the library cannot be loaded, as with a null or empty path, if it has no such entry, or if the
  /// entry returned false; the module does not stay loaded then. If the entry throws, the exception passes through and
  /// the module stays loaded, with nobody to release it.
  /// @param path       the path for dlopen
  /// @param entryName  a function of the module with C linkage: `bool (STEPmodel*)`
  HINSTANCE AttachDll(const char* path, const char* entryName);

  /// Appends the first descriptor of another model's schema to the chain of this one, unless the chain has a schema of
  /// that name (case-insensitively). The descriptor loses what followed it, for the other model too. Returns 1, or 0 if
  /// one of the models has no schema or `other` is null.
  int AddModel(STEPmodel* other);

  /// Returns the library of the first descriptor of the chain with this name, case-insensitively. Returns null if there
  /// is no such descriptor, if it has no library, or if the name is null.
  STEPlib* GetLib(const char* schemaName);
  void SetLib(STEPlib* lib);  ///< Records a library with the first descriptor. The caller still owns it.

  /// @}

  /// @name Queries
  /// A result consists of new nodes in the order of the source and belongs to the caller: call DeleteSTEPlist with its
  /// head, then delete the aggregate. At most 31 types count, the given one included; ExtractTypes determines which
  /// ones are dropped. When memory runs out for a node, the result ends there.
  ///
  /// With a `depth` below 2, only the given type counts, and it needs no row. With 2, two levels of subtypes count too,
  /// and so on.
  /// @{

  STEPlist* GetSTEPlist(int type, int depth);  ///< The instances of a type; null if there is none.
  STEPaggr* GetSTEPaggr(int type, int depth);  ///< The same in an aggregate; null only when memory runs out for that.
  STEPaggr* GetSTEPaggrAll(int type);          ///< The same with a depth of 31.

  /// The members of a list of references that are of a type. Null members are skipped; a null source counts as empty.
  STEPaggr* GetSTEPaggr(STEPaggr* source, int type, int depth);
  STEPaggr* GetSTEPaggrAll(STEPaggr* source, int type);  ///< The same with a depth of 31.
  /// @}

  /// @name Fields
  /// Derived classes and the library use them directly. Change them through the operations above.
  /// @{
  char name[261];      ///< See Name.
  STEPheader* first;   ///< See Inst.
  STEPheader** tail;   ///< The link that ends the list: the last instance's `next`, or `first`.
  APPobject0* schema;  ///< The first descriptor of the schema, or null.
  bool changed;        ///< See Changed.
  bool locked;         ///< See Locked.
  bool shared;         ///< The model was made from another one, so it never drops the schema's index.
  int errorsLeft;      ///< What is left of the running transfer's budget.
  int errorLimit;      ///< The budget at the start of each transfer.
  int lastId;          ///< The last id of GetEntId or AutoId, 0 to 99999.
                       /// @}

 protected:
  /// Appends an instance without changing its `model`, and without removing it from another list. Null does nothing.
  void AddInst(STEPheader* object);

  /// Binds the model to a schema and does nothing else. Null unbinds it.
  void AppObj(APPobject0* descriptor);

  /// Drops the schema's index for all models that use it. Lookups then walk the rows again.
  void RemoveHash();
};

/// Returns the model that an instance constructed without a model joins. It is null until the first model is
/// constructed, and may be a model that has been destroyed: see ~STEPmodel. An error procedure must check for null:
/// Write and WriteXml set no current model.
STEPRT_API STEPmodel* CurrentModel();

/// Sets the current model; null for none. STEPmodel(int) sets it too; Read and ReadXml set it while they run.
STEPRT_API void CurrentModel(STEPmodel* model);

/// Returns `prefix`, truncated to 63 characters, followed by the next id of the current model, or by 0 if there is
/// none. The text is in a buffer of the library that the next call overwrites. A null prefix counts as empty.
/// @param reserved  not used
/// @param prefix    the start of the text
STEPRT_API char* AutoId(int reserved, const char* prefix);

#endif
