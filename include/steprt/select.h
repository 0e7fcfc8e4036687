// The value of a SELECT attribute: one value whose kind shows at run time.
//
//   if (owner.Type() == STEPselect::SEL_OBJ) Visit(owner.GetSTEPobj());
//
// Getters never convert: asking for another kind than the one held gives 0, 0.0 or null. Setters never release: a text
// that is replaced goes back to the caller, who takes it with GetCharPtr first and releases it by delete[].
#ifndef STEPRT_SELECT_H
#define STEPRT_SELECT_H

#include <steprt/export.h>
#include <steprt/fwd.h>

class STEPRT_API STEPselect {
 public:
  enum SelType : int {
    SEL_NONE = 0,  // nothing, the state after construction
    SEL_INT = 1,
    SEL_REAL = 2,
    SEL_TEXT = 3,  // a text from new char[], owned by the select
    SEL_OBJ = 4    // an instance, not owned; null stands for an omitted value
  };

  STEPselect();

  // Takes value and kind; a text is duplicated. Without memory for the copy the new select holds nothing.
  STEPselect(const STEPselect& other);

  ~STEPselect();  // releases a text

  // Takes value and kind as raw data: a text is then held by both selects and would be released by both. Give one of
  // them another kind through a setter before it is destroyed. A text that the target held is not released.
  STEPselect& operator=(const STEPselect& other);

  SelType Type();

  int GetInt();
  double GetReal();
  char* GetCharPtr();  // stays the select's
  STEPheader* GetSTEPobj();

  void SetInt(int integer);
  void SetReal(double real);
  void SetCharPtr(char* text);  // from new char[], handed over; no literal, no buffer of the caller's
  void SetSTEPobj(STEPheader* object);

  // Where the value lies, whatever the kind. A pointer stored there is what GetSTEPobj gives once the kind is SEL_OBJ;
  // the kind is not changed.
  void** GetSTEPObjAddr();

  union {
    void* address;  // the arm that covers all eight bytes
    int integer;
    double real;
    char* text;
    STEPheader* object;
  } value;
  SelType tag;
};

#endif
