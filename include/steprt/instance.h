/// @file
/// The base class of every entity instance.
///
///     class Wall : public STEPheader {
///      public:
///       Wall() : STEPheader(nullptr) { Type(kWall); }   // joins the current model
///       double height = 0;
///     };
///
/// Create instances with `new`: the model that has an instance on its list destroys it with `delete`. One thread at a
/// time uses the library. Two models on two threads are not independent: the process has one current model.
#ifndef STEPRT_INSTANCE_H
#define STEPRT_INSTANCE_H

#include <steprt/export.h>
#include <steprt/fwd.h>

/// An instance of an entity. Derive one class for each entity.
class STEPRT_API STEPheader {
 public:
  /// Appends the new instance to the list of `model`, or to that of the current model if `model` is null. If both are
  /// null, it has no model until STEPmodel::Insert adds it. It starts with type -1, number 0 and an empty id.
  ///
  /// `model` must be the address of a STEPmodel as such. Because the parameter is a `void*`, the compiler does not
  /// convert the address of a derived class: where STEPmodel is not its first base, write
  /// `static_cast<STEPmodel*>(model)`.
  explicit STEPheader(void* model = nullptr);

  /// Copies all fields, `next` and `model` too. The copy names the model, but is not on its list, so the model does not
  /// destroy it. Use it only to look at the fields, and destroy it before the model.
  STEPheader(const STEPheader& other);

  /// Removes the instance from its model's list, by a walk from the list's head. Clear the lists, selects and
  /// references that name the instance yourself.
  virtual ~STEPheader();

  /// Copies all fields, `next` and `model` too, and repairs no list: what follows a target on its list is lost there.
  STEPheader& operator=(const STEPheader& other);

  /// A text of the client's, which is not written to files. The report "Reference to wrong object type '%s'" shows it.
  char* Id();
  void Id(char* text);        ///< Copies `text`, silently truncated to 63 characters. A null text changes nothing.
  void Id(const char* text);  ///< The same.

  int Type();            ///< The type number, which is that of the entity's row; -1 until the derived class sets it.
  void Type(int value);  ///< Sets the type number.

  STEPmodel* Model();  ///< The model, or null if the instance has none.

  STEPheader* NextHead();            ///< Returns the instance after this one on the model's list, or null.
  void NextHead(STEPheader* value);  ///< Sets the next instance and nothing else: keep the list whole yourself.
  STEPheader** pNextHead();          ///< The address of that link. The same duty applies.

  /// Marks the model as changed, during a transfer too. Does nothing without a model.
  void Changed();

  /// Returns the keyword of the instance's type. Returns an empty text without a model, a schema or a row, where
  /// STEPmodel::EntityName returns "Unknown".
  const char* EntityName();

  /// Whether the instance is of `type` or of one of its subtypes. A negative `type` matches every instance. Without a
  /// model or a schema, only the same type matches.
  bool IsKindOf(int type);

  /// @name Fields
  /// Derived classes and the library use them directly. Change them through the operations above.
  /// @{
  STEPheader* next;  ///< See NextHead. Null if the instance never had a model.
  int type;          ///< See Type.
  /// The number in the file last written, or in the XML document last read; 0 before. A read of clear text does not set
  /// it.
  int number;
  char id[64];       ///< See Id.
  STEPmodel* model;  ///< See Model.
  /// @}
};

#endif
