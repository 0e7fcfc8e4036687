// Modules that are loaded at run time, their entries, and the chain of extension modules. A null module has no entries
// and no path, and is not released.
#ifndef STEPRT_PLATFORM_MODULES_H
#define STEPRT_PLATFORM_MODULES_H

#include "steprt/export.h"
#include "steprt/module.h"

namespace steprt {

// Loads the module, or adds a reference to it. Returns null if it cannot be loaded, also for a null or empty path.
HINSTANCE LoadModule(const char* path);

// Removes a reference. Returns false, and does nothing, if no module has the handle. The system may use the handle of
// an unloaded module again for another one; the two cannot be told apart.
bool ReleaseModule(HINSTANCE module);

// Return an entry of the module itself, not of one that it depends on. They return null if it has no such entry.
void* FindEntry(HINSTANCE module, const char* name);
STEPentryFunc FindEntry(HINSTANCE module, int number);

// Stores the module's full path, truncated to `size` - 1 characters.
void ModulePath(HINSTANCE module, char* path, int size);

// Returns the loaded module that contains the address, without a new reference. Returns null if the program contains
// it, or no module.
HINSTANCE ModuleOf(const void* address);

// Returns the head of the chain of extension modules, or null if it is empty. A STEPmodule object joins the chain and
// leaves it.
STEPmodule* FirstModule();

// A module that has registered itself without joining the chain.
struct ModuleRecord {
  HINSTANCE module = nullptr;
};

bool InitModule(ModuleRecord& record, HINSTANCE module);  // false for a null module
void TermModule(ModuleRecord& record);

}  // namespace steprt

#endif
