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

// The loader's record of the program, at the head of those of all modules.
const link_map* ProgramMap() {
  void* program = dlopen(nullptr, RTLD_LAZY);
  if (!program) return nullptr;
  link_map* map = nullptr;
  if (dlinfo(program, RTLD_DI_LINKMAP, &map) != 0) map = nullptr;
  dlclose(program);
  return map;
}

// That of a module, whose address is the handle, or null when it has gone: the loader's own calls may not be given such
// a handle.
const link_map* MapOf(HINSTANCE module) {
  const link_map* map = ProgramMap();
  while (map && map != module) map = map->l_next;
  return map;
}

const void* BaseOf(const void* address) {
  Dl_info info;
  return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

// A line of /proc/self/maps: START-END, four more words, and the path, if a file is what is mapped there.
const char* MappedPath(char* line, std::uintptr_t address) {
  char* rest = line;
  const std::uintptr_t start = std::strtoul(rest, &rest, 16);
  if (*rest++ != '-') return nullptr;
  const std::uintptr_t end = std::strtoul(rest, &rest, 16);
  return start <= address && address < end ? std::strchr(rest, '/') : nullptr;
}

// The folder of the file that is mapped at the address, ended by its slash; empty when it cannot be told. The loader
// is not asked: where it could not find out the folder itself, what it says is no text, and of any length.
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

// dlopen would take an empty path for the program itself. All of a module's names must be found now, so that a module
// that lacks some fails here and not in the middle of a call.
HINSTANCE LoadModule(const char* path) { return path && *path ? dlopen(path, RTLD_NOW | RTLD_LOCAL) : nullptr; }

bool ReleaseModule(HINSTANCE module) { return MapOf(module) && dlclose(module) == 0; }

// A module that came with another, and was never opened itself, has no list of modules for dlsym to search: it is
// opened for the call. dlsym goes on to the modules that this one depends on, and so would find their entries, or the
// library's.
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

// The loader keeps a relative path as it was given. What it was relative to may be another folder by now, or none.
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

// Asked by address, not by name: the program's name is what its caller made of it, and may be that of a module.
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
