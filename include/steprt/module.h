/// @file
/// For the author of a module: a shared object that contains a schema and is loaded at run time.
///
/// Entries by number. A module offers them in a table, which its function STEPentries returns:
///
///     static const STEPentryFunc kEntries[] = {nullptr, CountDoors, CountWindows};   // 1 is unused; 2 and 3
///     static const STEPentryTable kTable = {3, kEntries};
///     const STEPentryTable* STEPentries() { return &kTable; }
///
/// STEPlib::LoadFunct fetches entries from number 2 on. A function of another type needs a reinterpret_cast on both
/// sides.
///
/// The chain of extension modules. A module joins it by one object at namespace scope and remains in it until it is
/// unloaded; the newest module comes first:
///
///     static STEPmodule thisModule;
///
/// STEPlib(char*) finds such a module and shares it. The library itself is in no chain. One thread at a time uses the
/// library: load and unload modules on that thread.
#ifndef STEPRT_MODULE_H
#define STEPRT_MODULE_H

#include <steprt/export.h>

/// An entry of a module.
using STEPentryFunc = int (*)();

/// The numbered entries of a module.
struct STEPentryTable {
  int count;                     ///< The greatest number.
  const STEPentryFunc* entries;  ///< entries[n - 1] is entry number n; null if the module has no such entry.
};

extern "C" {

/// Returns the table of a module. Each module defines its own; a module without it has no numbered entries. Never call
/// it: the call may reach the function of another module. The library looks it up in the module itself.
STEPRT_API const STEPentryTable* STEPentries();

}  // extern "C"

/// A link of the chain of extension modules.
class STEPRT_API STEPmodule {
 public:
  /// Adds the module that contains this object to the chain. An object outside of all modules (on the stack, on the
  /// heap, in the program) is not added, nor is one in a module of another namespace of the loader (dlmopen).
  STEPmodule();
  ~STEPmodule();  ///< Removes it from the chain.

  STEPmodule(const STEPmodule&) = delete;
  STEPmodule& operator=(const STEPmodule&) = delete;

  STEPmodule* next;  ///< The next link; null at the end.
  HINSTANCE module;  ///< The module. The chain takes no reference: it keeps no module loaded.
};

#endif
