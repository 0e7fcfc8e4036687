// The members of STEPmodel that move it to and from files.
#include "model/current_model.h"
#include "steprt/model.h"
#include "steprt/read.h"
#include "steprt/write.h"
#include "xml/xml_reader.h"
#include "xml/xml_writer.h"

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

// A model that is still empty, whatever the clear-text pass said, gets the file as XML, and with it that pass's result.
int STEPmodel::Read(bool check, char* fileName) {
  Name(fileName);
  const TransferScope transfer(this);
  const steprt::CurrentModelScope current(this);
  const int errors = STEPread(name, schema, check);
  return first ? errors : steprt::STEPreadXml(name, schema, nullptr);
}

int STEPmodel::ReadXml(const char* text) {
  const TransferScope transfer(this);
  const steprt::CurrentModelScope current(this);
  return steprt::STEPreadXml(name, schema, text);
}

int STEPmodel::Write(char* fileName, const char* remark) {
  const TransferScope transfer(this);
  return STEPwrite(fileName ? fileName : name, remark ? remark : "", first, schema);
}

int STEPmodel::WriteXml(char* fileName, const char* remark) {
  const TransferScope transfer(this);
  return steprt::STEPwriteXml(fileName ? fileName : name, remark ? remark : "", first, schema);
}
