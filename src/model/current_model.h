// Holds a model as the current one for its own life and makes the earlier one current again, on every way out.
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
