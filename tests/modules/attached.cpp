// A module in no chain, without numbered entries, for STEPmodel::AttachDll.
#include <unistd.h>

#include <cstring>

#include "steprt/model.h"

extern "C" STEPRT_API bool Accept(STEPmodel* model) {
  std::strcpy(model->name, "accepted");
  return true;
}

extern "C" STEPRT_API bool Reject(STEPmodel* model) {
  std::strcpy(model->name, "rejected");
  return false;
}

// Of the C library, so that this module depends on it however it is linked.
extern "C" STEPRT_API int OfTheSystem() { return static_cast<int>(getpid()); }
