// Aggregates under edit: some of references and one of numbers, each beside a vector.
#ifndef STEPRT_FUZZ_EDIT_AGGREGATES_H
#define STEPRT_FUZZ_EDIT_AGGREGATES_H

#include <steprt/aggregate.h>

#include <vector>

#include "bytes.h"

namespace fuzz {

// Of instances; null is a member like any other.
class References {
 public:
  ~References() { DeleteSTEPlist(&aggr_.head); }

  void Edit(Bytes& bytes, STEPheader* object, STEPheader* other);
  void Ask(Bytes& bytes, STEPheader* object);
  void Forget(STEPheader* object);  // all its members

  STEPaggr& Aggr() { return aggr_; }
  const std::vector<STEPheader*>& Members() const { return members_; }

 private:
  std::size_t Find(STEPheader* object) const;  // the count where there is none
  void Compare() const;

  STEPaggr aggr_;
  std::vector<STEPheader*> members_;
};

class Reals {
 public:
  ~Reals() { DeleteSTEPlist(&aggr_.head); }

  void Edit(Bytes& bytes);

 private:
  void Compare() const;

  STEPaggr aggr_;
  std::vector<double> members_;
};

class Aggregates {
 public:
  void Step(Bytes& bytes, STEPheader* object, STEPheader* other);
  void Forget(STEPheader* object);
  References& Pick(Bytes& bytes) { return references_[bytes.Below(kCount)]; }

 private:
  static constexpr int kCount = 3;

  References references_[kCount];
  Reals reals_;
};

}  // namespace fuzz

#endif
