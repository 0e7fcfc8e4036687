// The library's load hook. It makes the library known to platform/modules. It adds it to no chain of libraries.
#include "exports/load_hook.h"

#include "platform/modules.h"

namespace {

constinit steprt::ModuleRecord thisLibrary;

[[gnu::constructor]] void Load() { DllMain(steprt::ModuleOf(&thisLibrary), steprt::kProcessAttach, nullptr); }

[[gnu::destructor]] void Unload() { DllMain(thisLibrary.module, steprt::kProcessDetach, nullptr); }

}  // namespace

int DllMain(HINSTANCE module, unsigned reason, void* /*reserved*/) {
  if (reason == steprt::kProcessAttach) return steprt::InitModule(thisLibrary, module);
  if (reason == steprt::kProcessDetach) steprt::TermModule(thisLibrary);
  return 1;
}
