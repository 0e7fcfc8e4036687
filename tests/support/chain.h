// Chains of descriptors made at run time, and a model that is bound to one.
#ifndef STEPRT_TESTS_SUPPORT_CHAIN_H
#define STEPRT_TESTS_SUPPORT_CHAIN_H

#include <string>
#include <vector>

#include "steprt/model.h"
#include "steprt/schema.h"

namespace steprt_test {

struct Row {
  std::string name;
  int type;
  std::string super = "";  // empty: a root
};

struct Schema {
  std::string name;
  std::vector<Row> rows;
};

// Rows have neither read nor write functions.
class Chain {
 public:
  explicit Chain(std::vector<Schema> schemas);
  ~Chain();
  Chain(const Chain&) = delete;
  Chain& operator=(const Chain&) = delete;

  APPobject0* Head() const { return descriptors_.front(); }
  APPobject0* At(int i) const { return descriptors_[static_cast<std::size_t>(i)]; }

 private:
  const std::vector<Schema> schemas_;  // holds the texts
  std::vector<APPobject0*> descriptors_;
};

class Model : public STEPmodel {
 public:
  explicit Model(APPobject0* head) { AppObj(head); }
  using STEPmodel::RemoveHash;
};

}  // namespace steprt_test

#endif
