/// @file
/// A loaded library that contains a schema.
///
///     STEPlib lib(path);                        // a char*; shares the module if it is in the chain of module.h
///     if (lib.LibOpen()) model.SetLib(&lib);    // the model must not use it after `lib` has gone
///
/// One thread at a time uses the library: the key of a path is in one buffer of the process.
#ifndef STEPRT_LIBRARY_H
#define STEPRT_LIBRARY_H

#include <steprt/export.h>
#include <steprt/fwd.h>

/// The handle of a module, and whether this object must release it.
class STEPRT_API STEPlib {
 public:
  using Entry = int (*)();  ///< An entry that LoadFunct fetches.

  /// Wraps a module that someone else loaded and releases. The object is open, whatever the handle is.
  ///
  /// The library checks a handle before it uses it. Null and the handle of a module that is no longer loaded have no
  /// entries and are not released. Two limits: the system may use the handle of an unloaded module again for another
  /// one, and a module of another namespace of the loader (dlmopen) counts as unloaded.
  STEPlib(HINSTANCE module);

  /// Searches the chain of extension modules, and loads the module if it is not there. A module that was found is
  /// shared: this object does not release it. One that was loaded is released with the object.
  ///
  /// The search key is the path after its last backslash; a slash does not separate. It is upper-cased, and of a longer
  /// key the last 19 characters count. The first module matches whose own upper-cased path contains the key; the first
  /// 127 characters of that path count. So an empty path, or one that ends in a backslash, matches the newest module of
  /// the chain. A null path loads nothing; neither does an empty one if the chain is empty.
  STEPlib(char* path);

  /// Copies the fields and takes no reference of its own. Two objects that own one module would both release it: let
  /// only one of them do so.
  STEPlib(const STEPlib& other) = default;

  /// Copies the fields, as the copy constructor does. A module that the target had is not released.
  STEPlib& operator=(const STEPlib& other);

  ~STEPlib();  ///< Releases the module if the object is open and owns it.

  bool LibOpen();  ///< Whether the module can be used.

  /// Releases the module `count` times, whoever owns it, but stops when it is no longer loaded. Then destroys this
  /// object, which releases an open and owned module once more.
  ///
  /// The object must come from `new`, and is gone after the call. It may be of a derived class that has STEPlib as its
  /// first base, no virtual functions, and no greater alignment than `new` provides. The destructors of that class and
  /// of its members do not run.
  void UnloadDLL(int count);

 protected:
  /// Fetches entries number 2, 3 and so on into `table`. Returns 1 if all of them exist.
  ///
  /// At the first that is missing it stores null, releases the module if this object owns it, closes the object and
  /// returns 0; entries before that one remain in the table. A closed object returns 0 and does not change the table.
  int LoadFunct(Entry* table, int count);

  HINSTANCE handle;  ///< The module; null after a failed load.
  bool open;         ///< Whether the module can be used.
  bool owned;        ///< Whether this object loaded the module and releases it.
};

#endif
