// Strings under edit, each beside one of the standard library's.
#ifndef STEPRT_FUZZ_EDIT_STRINGS_H
#define STEPRT_FUZZ_EDIT_STRINGS_H

#include <steprt/text.h>

#include <string>

#include "bytes.h"

namespace fuzz {

class Strings {
 public:
  void Step(Bytes& bytes);

 private:
  class Open : public STEPstring {
   public:
    using STEPstring::STEPstring;
    using STEPstring::operator=;
    using STEPstring::Empty;

    int Capacity() const { return capacity; }
  };
  struct Pair {
    Open text;
    std::string expected;
    int capacity = 0;  // that a buffer must keep
  };

  void Edit(Bytes& bytes, Pair& pair, Pair& other);
  static void CheckCase(Pair& pair);
  static void CheckOrder(Pair& pair, const std::string& other);
  static void Compare(Pair& pair);

  Pair pairs_[3];
};

}  // namespace fuzz

#endif
