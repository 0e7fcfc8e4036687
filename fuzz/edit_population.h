// Two models of one schema and their instances under edit, each model beside a vector; and the questions that a model
// answers about types, beside a table.
#ifndef STEPRT_FUZZ_EDIT_POPULATION_H
#define STEPRT_FUZZ_EDIT_POPULATION_H

#include <vector>

#include "bytes.h"
#include "client.h"
#include "edit_aggregates.h"

namespace fuzz {

class Population {
 public:
  // Instances that are destroyed leave the aggregates first.
  explicit Population(Aggregates& aggregates);
  ~Population();

  // An instance, or null.
  STEPheader* Pick(Bytes& bytes) const;

  void Step(Bytes& bytes, STEPheader* object);

 private:
  class HeadModel : public Model {
   public:
    using STEPmodel::RemoveHash;
  };
  using Members = std::vector<STEPheader*>;

  static constexpr int kModels = 2;
  static constexpr int kLoose = kModels;  // the list of those that are on no model's

  void Construct(Bytes& bytes);
  void Insert(Bytes& bytes, STEPheader* object);
  void Remove(Bytes& bytes, STEPheader* object);
  void Destroy(STEPheader* object);
  void Clear(Bytes& bytes);
  void Retype(Bytes& bytes, STEPheader* object);
  void Index(Bytes& bytes);
  void NextId(Bytes& bytes);

  // In edit_questions.cpp.
  void Ask(Bytes& bytes, STEPheader* object);
  void Query(Bytes& bytes);

  void Drop(STEPheader* object);  // from its vector
  void Compare();

  Aggregates& aggregates_;
  HeadModel head_;
  STEPmodel second_;
  STEPmodel* const models_[kModels];
  Members members_[kModels + 1];
  int lastIds_[kModels] = {};
};

}  // namespace fuzz

#endif
