// A library that carries a schema, and whether this object has to let go of it.
//
//   STEPlib lib(path);
//   if (lib.LibOpen()) model.SetLib(&lib);
//
// The key of a path, by which a loaded module is known, lies in one buffer of the process: one thread at a time.
#ifndef STEPRT_LIBRARY_H
#define STEPRT_LIBRARY_H

#include <steprt/export.h>
#include <steprt/fwd.h>

class STEPRT_API STEPlib {
 public:
  using Entry = int (*)();

  // Wraps a module that somebody else loaded and releases. Null too counts as open. A module of another namespace of
  // the loader (dlmopen) counts as one that has gone: it has no entries here and is not released.
  STEPlib(HINSTANCE module);

  // Looks for the module among those of the extension chain, and loads it if it is not there. The last component of
  // the path, behind its last backslash, is the key: upper-cased, and of a longer one its last 19 characters, it is
  // sought anywhere in a module's own upper-cased path, of which the first 127 characters count. A module that is found
  // is shared and stays loaded; one that is loaded here is released with this object. A null path loads nothing.
  STEPlib(char* path);

  // Copies the fields. Both objects may own one module then: the caller sees to it that only one of them releases it.
  // A module that the target of an assignment held is not released.
  STEPlib(const STEPlib& other) = default;
  STEPlib& operator=(const STEPlib& other);

  ~STEPlib();

  bool LibOpen();  // whether the module is usable

  // Releases the module `count` times, whoever owns it, but no longer than it is loaded; then destroys this object, by
  // which an open and owned module is released once more. The object must come from new. It may be of a derived class
  // that has no virtual functions, no alignment beyond that of new, and STEPlib as its first base; the destructor of
  // that class, and those of its members, are not run.
  void UnloadDLL(int count);

 protected:
  // Fills `table` with the module's entries number 2, 3, ... Gives 1 when all are there. A missing one stays null in
  // its place, releases an owned module, closes this object and gives 0. A closed object gives 0 and leaves the table.
  int LoadFunct(Entry* table, int count);

  HINSTANCE handle;  // null after a failed load
  bool open;         // the handle is usable
  bool owned;        // this object loaded the module and releases it
};

#endif
