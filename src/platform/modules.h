// Modules that are loaded at run time, their entries, and the chain of extension modules. A null module is none: it has
// no entries and no path, and is not released.
#ifndef STEPRT_PLATFORM_MODULES_H
#define STEPRT_PLATFORM_MODULES_H

#include "steprt/export.h"
#include "steprt/module.h"

namespace steprt {

// One reference more to the module, or null when it cannot be loaded, as with a null or an empty path.
HINSTANCE LoadModule(const char* path);

// One reference less; false, and nothing happens, when no module has the handle. The handle of a module that has gone
// may by now be that of another: nobody can tell the two apart.
bool ReleaseModule(HINSTANCE module);

// An entry of the module itself, not of what it depends on; null if it has none of that name or number.
void* FindEntry(HINSTANCE module, const char* name);
STEPentryFunc FindEntry(HINSTANCE module, int number);

// The module's full path, cut to `size` - 1 characters.
void ModulePath(HINSTANCE module, char* path, int size);

// The loaded module in which the address lies, without a reference to it; null for the program and for no module.
HINSTANCE ModuleOf(const void* address);

// The chain of extension modules, which modules join and leave by their STEPmodule; null when it is empty.
STEPmodule* FirstModule();

// What the layer knows of a module that has made itself known without joining the chain.
struct ModuleRecord {
  HINSTANCE module = nullptr;
};

bool InitModule(ModuleRecord& record, HINSTANCE module);  // false for a null module
void TermModule(ModuleRecord& record);

}  // namespace steprt

#endif
