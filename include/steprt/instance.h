// The base class of every entity instance.
//
//   class Wall : public STEPheader {
//    public:
//     Wall() : STEPheader(nullptr) { Type(kWall); }   // joins the current model
//     double height = 0;
//   };
//
// A model owns its instances and destroys them with delete, so make them with new. The library has no locks: one
// thread at a time uses a model and its instances.
#ifndef STEPRT_INSTANCE_H
#define STEPRT_INSTANCE_H

#include <steprt/export.h>
#include <steprt/fwd.h>

class STEPRT_API STEPheader {
 public:
  // Appends the instance to `model`, a STEPmodel*, or, when that is null, to the current model. Without either it
  // stands alone, until STEPmodel::Insert takes it. Its type is -1, its id empty, its number 0.
  explicit STEPheader(void* model = nullptr);

  // Copies all fields, links included; the copy is on no model's list, names the same model and goes before it. A
  // snapshot, to be used as no more than that.
  STEPheader(const STEPheader& other);

  // Takes the instance off its model's list, a walk from the list's head. Lists and references that mention it are
  // the client's to clear.
  virtual ~STEPheader();

  // Copies all fields, links included, and repairs no list.
  STEPheader& operator=(const STEPheader& other);

  // A text of the client's, in no file; "Reference to wrong object type '%s'" shows it. Cut at 63 characters,
  // silently. A null text changes nothing.
  char* Id();
  void Id(char* text);
  void Id(const char* text);

  // The type number of the entity's row; -1 until the derived class sets it.
  int Type();
  void Type(int value);

  STEPmodel* Model();  // null for an instance that stands alone

  // The next instance of the model's list; null at the end. A caller that sets links keeps the list in order itself.
  STEPheader* NextHead();
  void NextHead(STEPheader* value);
  STEPheader** pNextHead();

  // Marks the model as changed, during a transfer too. Does nothing without a model.
  void Changed();

  // The keyword of the instance's type; the empty text without a model or a row.
  const char* EntityName();

  // Whether the instance is of `type` or of a subtype of it; always true for a negative `type`. Without a model or a
  // schema only an equal type is one.
  bool IsKindOf(int type);

  // The fields are plain and open to derived classes and to the library. Change them through the operations above.
  STEPheader* next;  // next instance of the model's list; not set while there is no model
  int type;          // see Type
  int number;        // the number in the file last written, or in the XML document read; 0 for none yet
  char id[64];       // see Id
  STEPmodel* model;  // see Model
};

#endif
