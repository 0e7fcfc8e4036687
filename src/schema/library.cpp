#include "steprt/library.h"

#include <cstring>

#include "platform/modules.h"
#include "support/ascii.h"

namespace {

constexpr int kFirstFetched = 2;  // LoadFunct's first entry number
constexpr std::size_t kKeyLimit = 19;
constexpr int kPathBuffer = 128;

constinit char keyBuffer[kKeyLimit + 1] = "";

void MakeUpper(char* text) {
  for (; *text; ++text) *text = steprt::ToUpper(*text);
}

// The part after the last backslash, or the whole path; a slash is no separator. A longer text keeps its end, which
// tells the modules of one folder apart.
const char* KeyOf(const char* path) {
  const char* backslash = std::strrchr(path, '\\');
  const char* key = backslash ? backslash + 1 : path;
  const std::size_t length = std::strlen(key);
  std::strcpy(keyBuffer, length > kKeyLimit ? key + (length - kKeyLimit) : key);
  MakeUpper(keyBuffer);
  return keyBuffer;
}

// The first module of the chain whose path contains the key, anywhere and case-insensitively; null if there is none.
HINSTANCE FindInChain(const char* key) {
  for (const STEPmodule* each = steprt::FirstModule(); each; each = each->next) {
    char path[kPathBuffer];
    steprt::ModulePath(each->module, path, kPathBuffer);
    MakeUpper(path);
    if (std::strstr(path, key)) return each->module;
  }
  return nullptr;
}

}  // namespace

STEPlib::STEPlib(HINSTANCE module) : handle(module), open(true), owned(false) {}

STEPlib::STEPlib(char* path) : handle(path ? FindInChain(KeyOf(path)) : nullptr), open(handle), owned(!handle) {
  if (!owned) return;
  handle = steprt::LoadModule(path);
  open = handle != nullptr;
}

STEPlib::~STEPlib() {
  if (open && owned) steprt::ReleaseModule(handle);
  open = false;
}

STEPlib& STEPlib::operator=(const STEPlib& other) = default;

bool STEPlib::LibOpen() { return open; }

int STEPlib::LoadFunct(Entry* table, int count) {
  if (!open) return 0;
  for (int i = 0; i < count; ++i) {
    table[i] = steprt::FindEntry(handle, i + kFirstFetched);
    if (table[i]) continue;
    if (owned) steprt::ReleaseModule(handle);
    open = false;
    return 0;
  }
  return 1;
}

void STEPlib::UnloadDLL(int count) {
  while (count > 0 && steprt::ReleaseModule(handle)) --count;
  // Not by delete: LoadFunct is protected, so the object is usually of a derived class, and of another size.
  this->~STEPlib();
  ::operator delete(static_cast<void*>(this));
}
