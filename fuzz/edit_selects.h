// Selects under edit, each beside a record of what it should hold.
#ifndef STEPRT_FUZZ_EDIT_SELECTS_H
#define STEPRT_FUZZ_EDIT_SELECTS_H

#include <steprt/select.h>

#include <string>

#include "bytes.h"

namespace fuzz {

class Selects {
 public:
  void Step(Bytes& bytes, STEPheader* object);

 private:
  struct Held {
    STEPselect select;
    STEPselect::SelType kind = STEPselect::SEL_NONE;
    int integer = 0;
    double real = 0.0;
    std::string text;
    STEPheader* object = nullptr;
  };

  static void Set(Bytes& bytes, STEPheader* object, Held& held);
  static void Assign(Held& target, Held& source);
  static void ReleaseText(STEPselect& select);
  static void Compare(const Held& expected, STEPselect& select);

  Held held_[3];
};

}  // namespace fuzz

#endif
