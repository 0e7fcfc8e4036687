#include "platform/modules.h"

#include <dlfcn.h>
#include <limits.h>
#include <link.h>

#include <cstring>

#include "steprt/text.h"

namespace steprt {
namespace {

constinit STEPmodule* firstModule = nullptr;

// The loader's record of a module, whose address is the handle, or null when it has gone: the loader's own calls may
// not be given such a handle.
const link_map* MapOf(HINSTANCE module) {
  void* program = dlopen(nullptr, RTLD_LAZY);
  if (!program) return nullptr;
  link_map* map = nullptr;
  if (dlinfo(program, RTLD_DI_LINKMAP, &map) != 0) map = nullptr;
  while (map && map != module) map = map->l_next;
  dlclose(program);
  return map;
}

const void* BaseOf(const void* address) {
  Dl_info info;
  return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

}  // namespace

// dlopen would take an empty path for the program itself. All of a module's names must be found now, so that a module
// that lacks some fails here and not in the middle of a call.
HINSTANCE LoadModule(const char* path) { return path && *path ? dlopen(path, RTLD_NOW | RTLD_LOCAL) : nullptr; }

void ReleaseModule(HINSTANCE module) {
  if (MapOf(module)) dlclose(module);
}

// dlsym goes on to the modules that this one depends on, and so would find their entries, or the library's.
void* FindEntry(HINSTANCE module, const char* name) {
  const link_map* map = MapOf(module);
  void* address = map ? dlsym(module, name) : nullptr;
  return address && BaseOf(address) == BaseOf(map->l_ld) ? address : nullptr;
}

STEPentryFunc FindEntry(HINSTANCE module, int number) {
  const auto entries = reinterpret_cast<decltype(&STEPentries)>(FindEntry(module, "STEPentries"));
  const STEPentryTable* table = entries ? entries() : nullptr;
  return table && number >= 1 && number <= table->count ? table->entries[number - 1] : nullptr;
}

// The loader keeps a relative path as it was given, and beside it the folder as it was then.
void ModulePath(HINSTANCE module, char* path, int size) {
  path[0] = '\0';
  const link_map* map = MapOf(module);
  if (!map) return;
  const char* name = map->l_name;
  char folder[2 * PATH_MAX];
  if (name[0] == '/' || dlinfo(module, RTLD_DI_ORIGIN, folder) != 0) {
    Copy(path, name, size - 1);
    return;
  }
  const char* slash = std::strrchr(name, '/');
  Copy(path, folder, size - 1);
  const int length = static_cast<int>(std::strlen(path));
  if (length < size - 1) Copy(path + length, slash ? slash : "/", size - 1 - length);
}

HINSTANCE ModuleOf(const void* address) {
  Dl_info info;
  if (!dladdr(address, &info) || !info.dli_fname || !*info.dli_fname) return nullptr;
  void* module = dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
  if (!module) return nullptr;
  dlclose(module);
  return module;
}

STEPmodule* FirstModule() { return firstModule; }

bool InitModule(ModuleRecord& record, HINSTANCE module) {
  record.module = module;
  return module != nullptr;
}

void TermModule(ModuleRecord& record) { record.module = nullptr; }

}  // namespace steprt

STEPmodule::STEPmodule() : next(nullptr), module(steprt::ModuleOf(this)) {
  if (!module) return;
  next = steprt::firstModule;
  steprt::firstModule = this;
}

STEPmodule::~STEPmodule() {
  STEPmodule** link = &steprt::firstModule;
  while (*link && *link != this) link = &(*link)->next;
  if (*link) *link = next;
}
