// Makes a model the current one while the scope lasts. Afterwards the earlier one is current again, also when an
// exception of a client ends the scope.
#ifndef STEPRT_MODEL_CURRENT_MODEL_H
#define STEPRT_MODEL_CURRENT_MODEL_H

#include "steprt/model.h"

namespace steprt {

class CurrentModelScope {
 public:
  explicit CurrentModelScope(STEPmodel* model) : before_(CurrentModel()) { CurrentModel(model); }
  ~CurrentModelScope() { CurrentModel(before_); }
  CurrentModelScope(const CurrentModelScope&) = delete;
  CurrentModelScope& operator=(const CurrentModelScope&) = delete;

 private:
  STEPmodel* const before_;
};

}  // namespace steprt

#endif
