// A model: a population of instances that is bound to one schema chain, and its way to and from files.
//
//   class Building : public STEPmodel {
//    public:
//     Building() : STEPmodel(10) { AppObj(&buildingSchema); }
//   };
//   Building model;
//   if (model.Read(false, path) != 0) ...   // reports, or -1; path is a char*
//
// A model owns the instances on its list and destroys them; it owns nothing of the schema but the index that it built.
// One thread at a time uses the library: the current model is one for the whole process, and nothing is locked.
#ifndef STEPRT_MODEL_H
#define STEPRT_MODEL_H

#include <steprt/export.h>
#include <steprt/fwd.h>

class STEPRT_API STEPmodel {
 public:
  // An empty model, without a schema until the derived class calls AppObj. It becomes the current model.
  //
  //   errorLimit  the budget of ErrShow for each transfer
  explicit STEPmodel(int errorLimit = 10);

  // A second, empty population of another model's schema. It uses the index that the schema has and never removes it.
  // The current model stays. A null `other` gives a model without a schema.
  explicit STEPmodel(STEPmodel* other);

  // Copies all fields. A snapshot only: the instances stay those of the source, and the copy's end, or Delete on it,
  // leaves them alone. It looks at the first of them, so it must come before that one is destroyed.
  STEPmodel(const STEPmodel& other);

  // Destroys the instances and, unless the schema came from another model, drops the schema's index. The current model
  // is not touched: when it is this one, set another, or null, before anything relies on it.
  virtual ~STEPmodel();

  // Copies all fields, as the copy constructor does. Instances that the target had are not destroyed.
  STEPmodel& operator=(const STEPmodel& other);

  // The file name that Read and Write use by default. Cut at 260 characters, silently. A null text changes nothing.
  char* Name();
  void Name(char* text);
  void Name(const char* text);

  STEPheader* Inst();  // the first instance; the others follow by STEPheader::NextHead, in the order of appending
  int IsEmpty();       // 1 or 0

  // Moves an instance, from its own model if it has one, to the end of this model's list. Null does nothing.
  void Insert(STEPheader* object);

  // Takes an instance off the list, a walk from the first; it is not destroyed. A stranger changes nothing. The
  // instance still names this model: destroy it before the model, or Insert it elsewhere.
  void RmInst(STEPheader* object);

  // Destroys all instances and starts the ids of GetEntId anew. Name, schema and flags stay.
  void Delete();

  STEPheader* FindFirst(int type);  // the first of exactly this type, or null

  // Whether the model differs from what was last read or written. A transfer ends with it false, a failed one too.
  bool Changed();
  void SetChanged(bool value);

  // Whether a transfer runs. For the client's own code to look at: nothing refuses to act on a locked model.
  bool Locked();
  void SetLocked(bool value);

  // 1, 2, ... 99999, 0, 1 and so on.
  int GetEntId();

  // ---- files -------------------------------------------------------------------------------------------------------

  // Reads an ISO 10303-21 clear-text file and appends its instances. If the model is still empty then, the same file
  // is read as XML.
  //
  // A FIFO is waited for until somebody writes to it. An empty model that it leaves empty waits once more, for the XML.
  //
  //   check  read the DATA section only if FILE_SCHEMA names the model's schema
  //   name   becomes the model's name; null: the model's own is used. ".stp" is added for opening when what stands
  //          behind its last backslash has no dot
  //
  // Gives 0 for a clean read and above 0 the number of errors reported. For an empty model it gives -1 when the file is
  // read in neither form: it is missing, belongs to another schema, or has no record that the schema knows. Test for
  // != 0. After the XML pass the result is that of ReadXml: an error reported behind a fault counts -1 up to 0, and
  // without an XML service it is 0; the error procedure sees more. What was read before or beside an error stays. While
  // it runs, the model is locked and is the current one. Without a schema nothing is read and the result is 1. A pass
  // without memory for its transfer reads and reports nothing; its result is 1 in clear text and 0 in XML.
  int Read(bool check, char* name);

  // Writes the instances as an ISO 10303-21 clear-text file.
  //
  //   name    null: the model's own; the model does not take it on
  //   remark  goes into FILE_DESCRIPTION as it is, so it must keep to that text's rules; null counts as empty
  //
  // Gives the number of records, or -1; see STEPwrite.
  int Write(char* name, const char* remark);

  // Reads an XML document: `text`, or, when that is null, the file of the model's name. Gives the number of errors
  // reported; a document that is not well formed, or a file that cannot be opened, sets -1, which later reports count
  // up. Without an XML service: 0, after one message in a message box. Without a schema: 1. Without memory for the
  // transfer: 0, in silence.
  int ReadXml(const char* text);

  // Writes the instances as an XML document. Arguments and result as those of Write. A file to which a clear-text
  // writer writes counts as one that cannot be made; two XML writers share theirs.
  int WriteXml(char* fileName, const char* remark);

  // Takes one off the error budget of the running transfer: 1 while there was one left, else 0. For an error procedure
  // that shows the first few reports only; the library itself delivers every one.
  int ErrShow();

  // The budget of the transfers to come.
  void ErrShow(int limit);

  // ---- the schema --------------------------------------------------------------------------------------------------
  // Without a schema these do nothing and give the answer for "not found".

  const char* EntityName(int type);  // the keyword of a type, "Unknown" without a row; never through the index
  bool IsSchema(char* name);         // whether the first descriptor bears this name, in any case

  // Builds the schema's index, once. Lookups and subtype expansion then go by it. Names must be spelled as the rows
  // spell them from then on, and rows that AddModel adds later are not seen. A failed allocation leaves lookups linear,
  // or single rows unseen.
  void PrepareHash();

  // Loads a library and, if `entryName` is not null, calls that entry of it with this model; the entry has C linkage,
  // takes a STEPmodel* and gives a bool. Gives the module, which is the caller's to release, or null: without the
  // library, without the entry, or when the entry gave false; nothing stays loaded then.
  HINSTANCE AttachDll(const char* path, const char* entryName);

  // Links the first descriptor of another model's schema behind this one's chain, unless one of that name is there.
  // What followed that descriptor is cut off from it, for the other model as well. Gives 1, or 0 when either model has
  // no schema.
  int AddModel(STEPmodel* other);

  // The library of the first descriptor of the chain that bears this name, in any case; null if none.
  STEPlib* GetLib(const char* schemaName);

  // Records a library with the first descriptor. It stays the caller's.
  void SetLib(STEPlib* lib);

  // ---- queries -----------------------------------------------------------------------------------------------------
  // A query gives new nodes in the order of its source. They are the caller's: DeleteSTEPlist on the head, then delete
  // the aggregate. At most 31 types count, the asked one included; which of more are dropped follows from the order of
  // ExtractTypes. A node that cannot be allocated ends the result there.
  //
  //   depth  below 2: the type alone, with or without a row; 2: with two levels of subtypes, and so on. All: 31 levels

  STEPlist* GetSTEPlist(int type, int depth);                    // null if nothing matches
  STEPaggr* GetSTEPaggr(int type, int depth);                    // an empty aggregate if nothing matches; null
  STEPaggr* GetSTEPaggrAll(int type);                            //   only without memory for the aggregate
  STEPaggr* GetSTEPaggr(STEPaggr* source, int type, int depth);  // over a reference list; null members are skipped,
  STEPaggr* GetSTEPaggrAll(STEPaggr* source, int type);          //   a null source counts as empty

  // ---- fields, open to derived classes and to the library; change them through the operations -----------------------

  char name[261];      // see Name
  STEPheader* first;   // see Inst
  STEPheader** tail;   // the link that ends the list
  APPobject0* schema;  // head of the schema chain
  bool changed;        // see Changed
  bool locked;         // see Locked
  bool shared;         // the schema's index belongs to another model
  int errorsLeft;      // what is left of the running transfer's budget
  int errorLimit;      // what each transfer starts with
  int lastId;          // what GetEntId or AutoId gave last, 0 to 99999

 protected:
  // Appends without a look at the instance's model or at other lists.
  void AddInst(STEPheader* object);

  // Binds the model to a schema. Nothing else happens.
  void AppObj(APPobject0* descriptor);

  // Drops the schema's index, for all models that use it; lookups are linear again.
  void RemoveHash();
};

// The model that an instance constructed without a model joins; null until a model is constructed. Set by
// STEPmodel(int), by CurrentModel(STEPmodel*), and by Read and ReadXml for as long as they run.
STEPRT_API STEPmodel* CurrentModel();
STEPRT_API void CurrentModel(STEPmodel* model);

// The prefix, cut at 63 characters, with the next id of the current model behind it. The text lies in a buffer of the
// library that the next call overwrites. Without a current model the id is 0.
//
//   reserved  not looked at
STEPRT_API char* AutoId(int reserved, const char* prefix);

#endif
