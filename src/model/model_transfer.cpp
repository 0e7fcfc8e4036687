// The members of STEPmodel that move it to and from files.
#include "model/current_model.h"
#include "steprt/model.h"
#include "steprt/read.h"
#include "steprt/write.h"

namespace {

// A transfer's frame: the budget is filled and the model locked; on every way out it is neither changed nor locked,
// whatever the transfer gave.
class TransferScope {
 public:
  explicit TransferScope(STEPmodel* model) : model_(model) {
    model_->errorsLeft = model_->errorLimit;
    model_->locked = true;
  }
  ~TransferScope() { model_->changed = model_->locked = false; }
  TransferScope(const TransferScope&) = delete;
  TransferScope& operator=(const TransferScope&) = delete;

 private:
  STEPmodel* const model_;
};

}  // namespace

int STEPmodel::Read(bool check, char* fileName) {
  Name(fileName);
  const TransferScope transfer(this);
  const steprt::CurrentModelScope current(this);
  return STEPread(name, schema, check);
}

int STEPmodel::Write(char* fileName, const char* remark) {
  const TransferScope transfer(this);
  return STEPwrite(fileName ? fileName : name, remark ? remark : "", first, schema);
}
