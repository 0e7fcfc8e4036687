#include "platform/modules.h"

#include <dlfcn.h>
#include <limits.h>
#include <link.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "steprt/text.h"

namespace steprt {
namespace {

constinit STEPmodule* firstModule = nullptr;

// Returns the loader's record of the program. The records of all modules follow it.
const link_map* ProgramMap() {
  void* program = dlopen(nullptr, RTLD_LAZY);
  if (!program) return nullptr;
  link_map* map = nullptr;
  if (dlinfo(program, RTLD_DI_LINKMAP, &map) != 0) map = nullptr;
  dlclose(program);
  return map;
}

// Returns the record of a module, whose address is the handle. Returns null if the module has been unloaded: such a
// handle must not be passed to the loader.
const link_map* MapOf(HINSTANCE module) {
  const link_map* map = ProgramMap();
  while (map && map != module) map = map->l_next;
  return map;
}

const void* BaseOf(const void* address) {
  Dl_info info;
  return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

// A line of /proc/self/maps is START-END, four more words, and a path if a file is mapped there.
const char* MappedPath(char* line, std::uintptr_t address) {
  char* rest = line;
  const std::uintptr_t start = std::strtoul(rest, &rest, 16);
  if (*rest++ != '-') return nullptr;
  const std::uintptr_t end = std::strtoul(rest, &rest, 16);
  return start <= address && address < end ? std::strchr(rest, '/') : nullptr;
}

// Stores the folder of the file that is mapped at the address, with its slash, or the empty text if it is unknown. The
// loader's own answer is not used: if it could not find the folder, its answer is not a text.
void FolderOf(const void* address, char* folder, int size) {
  folder[0] = '\0';
  std::FILE* maps = std::fopen("/proc/self/maps", "re");
  if (!maps) return;
  char line[PATH_MAX + 128];
  const char* path = nullptr;
  while (!path && std::fgets(line, sizeof line, maps))
    path = MappedPath(line, reinterpret_cast<std::uintptr_t>(address));
  std::fclose(maps);
  if (!path) return;
  const int length = static_cast<int>(std::strrchr(path, '/') + 1 - path);
  Copy(folder, path, length < size ? length : size - 1);
}

}  // namespace

// An empty path would mean the program to dlopen. All names of a module are resolved now, so that a module with a
// missing one fails here and not during a call.
HINSTANCE LoadModule(const char* path) { return path && *path ? dlopen(path, RTLD_NOW | RTLD_LOCAL) : nullptr; }

bool ReleaseModule(HINSTANCE module) { return MapOf(module) && dlclose(module) == 0; }

// A module that was loaded as the dependency of another has no list of modules for dlsym to search, so it is opened for
// the call. dlsym also searches the modules that this one depends on, among them the library; their entries are
// refused.
void* FindEntry(HINSTANCE module, const char* name) {
  const link_map* map = MapOf(module);
  void* opened = map ? dlopen(map->l_name, RTLD_LAZY | RTLD_NOLOAD) : nullptr;
  void* address = opened && opened == module ? dlsym(opened, name) : nullptr;
  if (opened) dlclose(opened);
  return address && BaseOf(address) == BaseOf(map->l_ld) ? address : nullptr;
}

STEPentryFunc FindEntry(HINSTANCE module, int number) {
  const auto entries = reinterpret_cast<decltype(&STEPentries)>(FindEntry(module, "STEPentries"));
  const STEPentryTable* table = entries ? entries() : nullptr;
  return table && number >= 1 && number <= table->count ? table->entries[number - 1] : nullptr;
}

// The loader keeps a relative path unchanged. The current folder may be another one by now.
void ModulePath(HINSTANCE module, char* path, int size) {
  path[0] = '\0';
  const link_map* map = MapOf(module);
  if (!map) return;
  const char* name = map->l_name;
  if (name[0] != '/') {
    FolderOf(map->l_ld, path, size);
    const char* slash = std::strrchr(name, '/');
    if (path[0] && slash) name = slash + 1;
  }
  const int length = static_cast<int>(std::strlen(path));
  Copy(path + length, name, size - 1 - length);
}

// Modules are compared by address, not by name: the caller of a program chooses its name, which may be a module's.
HINSTANCE ModuleOf(const void* address) {
  const void* base = BaseOf(address);
  const link_map* program = ProgramMap();
  if (!base || !program) return nullptr;
  link_map* map = program->l_next;
  while (map && BaseOf(map->l_ld) != base) map = map->l_next;
  return map;
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
