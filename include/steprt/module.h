// For the writer of a module: a shared object that carries a schema and is loaded at run time.
//
// Numbered entries. A module offers them through one table of its own, which its function STEPentries gives:
//
//   static const STEPentryFunc kEntries[] = {nullptr, CountDoors, CountWindows};   // 1 is free; 2 and 3
//   static const STEPentryTable kTable = {3, kEntries};
//   const STEPentryTable* STEPentries() { return &kTable; }
//
// STEPlib::LoadFunct fetches from number 2 upward. A function of another type goes through a reinterpret_cast there and
// back.
//
// The chain of extension modules. A module joins it by one object at namespace scope, and stands in it from its load to
// its unload, the newest first:
//
//   static STEPmodule thisModule;
//
// STEPlib(char*) then finds it and shares it. The library itself stands in no chain. Nothing is locked: modules are
// loaded and unloaded on the thread that uses the library.
#ifndef STEPRT_MODULE_H
#define STEPRT_MODULE_H

#include <steprt/export.h>

using STEPentryFunc = int (*)();

struct STEPentryTable {
  int count;
  const STEPentryFunc* entries;  // entry number n is entries[n - 1]; null where the module has none
};

extern "C" {

// Each module defines its own; a module without it has no numbered entries. The library looks it up in the module. Do
// not call it: the name may mean that of another module.
STEPRT_API const STEPentryTable* STEPentries();

}  // extern "C"

class STEPRT_API STEPmodule {
 public:
  // Joins the chain with the module in which this object lies. One that lies in no module, but on the stack or the
  // heap or in the program, joins nothing; nor does one in a module of another namespace of the loader (dlmopen).
  STEPmodule();
  ~STEPmodule();  // leaves it

  STEPmodule(const STEPmodule&) = delete;
  STEPmodule& operator=(const STEPmodule&) = delete;

  STEPmodule* next;  // null at the end
  HINSTANCE module;  // not a reference of its own: the chain keeps no module loaded
};

#endif
