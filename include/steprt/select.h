/// @file
/// The value of a SELECT attribute, whose kind is known at run time only.
///
///     STEPselect& width = door->width;
///     if (width.Type() == STEPselect::SEL_REAL) Show(width.GetReal());
///     width.SetReal(2.5);
///
/// One thread at a time uses the library.
#ifndef STEPRT_SELECT_H
#define STEPRT_SELECT_H

#include <steprt/export.h>
#include <steprt/fwd.h>

/// A value and its kind. It owns a text, but not an instance.
///
/// A getter does not convert: if the value is of another kind, it returns 0, 0.0 or null. A setter does not release the
/// text that it replaces: call GetCharPtr before, and `delete[]` that text after. rSTEPsel does not release it either.
class STEPRT_API STEPselect {
 public:
  /// The kinds of value.
  enum SelType : int {
    SEL_NONE = 0,  ///< No value. A new select is in this state.
    SEL_INT = 1,   ///< An integer.
    SEL_REAL = 2,  ///< A real.
    SEL_TEXT = 3,  ///< A text from `new char[]`, which the select owns.
    SEL_OBJ = 4    ///< An instance, which the select does not own. Null is an omitted value.
  };

  STEPselect();  ///< A select without a value.

  /// Copies kind and value, and duplicates a text. When memory runs out for the text, the new select has no value.
  STEPselect(const STEPselect& other);

  ~STEPselect();  ///< Releases a text.

  /// Copies kind and value without duplicating a text, and does not release the text that the target had. Afterwards
  /// both selects own the same text: set another kind in one of them before it is destroyed.
  STEPselect& operator=(const STEPselect& other);

  SelType Type();  ///< The kind of the value.

  int GetInt();              ///< The integer, or 0.
  double GetReal();          ///< The real, or 0.0.
  char* GetCharPtr();        ///< The text, or null. The select still owns it.
  STEPheader* GetSTEPobj();  ///< The instance, or null.

  void SetInt(int integer);             ///< Stores an integer.
  void SetReal(double real);            ///< Stores a real.
  void SetCharPtr(char* text);          ///< Stores a text from `new char[]` and takes ownership. Never pass a literal.
  void SetSTEPobj(STEPheader* object);  ///< Stores an instance; null for an omitted value, which is written as `$`.

  /// The address of the value, whatever its kind. After a pointer has been stored there, GetSTEPobj returns it only if
  /// the kind is SEL_OBJ already: this operation does not change the kind.
  void** GetSTEPObjAddr();

  union {
    void* address;       ///< Covers all bytes of the union.
    int integer;         ///< If the kind is SEL_INT.
    double real;         ///< If the kind is SEL_REAL.
    char* text;          ///< If the kind is SEL_TEXT.
    STEPheader* object;  ///< If the kind is SEL_OBJ.
  } value;               ///< The value. Use the getters and setters.
  SelType tag;           ///< The kind of the value.
};

#endif
