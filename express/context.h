// What the steps of the resolver share.
#ifndef STEPRT_EXPRESS_CONTEXT_H
#define STEPRT_EXPRESS_CONTEXT_H

#include <cstddef>
#include <string>

#include "diagnostic.h"
#include "limits.h"
#include "schema.h"

namespace express {

// Limits the work on results that can be larger than the text. The first refusal is reported.
class Budget {
 public:
  Budget(std::size_t steps, Diagnostics& diagnostics) : left_(steps), diagnostics_(diagnostics) {}

  // False if fewer steps are left; then and ever after nothing more may be done.
  [[nodiscard]] bool Take(std::size_t steps, const Place& place) {
    if (exhausted_) return false;
    if (steps <= left_) {
      left_ -= steps;
      return true;
    }
    exhausted_ = true;
    diagnostics_.Error(place, Code::kTooLarge, "what this schema inherits or selects is too large to be listed");
    return false;
  }

 private:
  std::size_t left_;
  bool exhausted_ = false;
  Diagnostics& diagnostics_;
};

struct Context {
  Model& model;
  Diagnostics& diagnostics;
  Budget budget;

  void Error(const Name& name, Code code, std::string message) {
    diagnostics.Error(name.place, code, std::move(message));
  }
};

// The name in a message, cropped if it is long.
inline std::string Quoted(const Name& name) {
  constexpr std::size_t kLongest = 80;
  const bool whole = name.text.size() <= kLongest;
  return "'" + std::string(name.text.substr(0, kLongest)) + (whole ? "'" : "...'");
}

inline Entity* AsEntity(Declaration* declaration) {
  return const_cast<Entity*>(AsEntity(static_cast<const Declaration*>(declaration)));
}
inline DefinedType* AsType(Declaration* declaration) {
  return const_cast<DefinedType*>(AsType(static_cast<const Declaration*>(declaration)));
}

}  // namespace express

#endif
