// The members of STEPmodel that read and write files. They are the frame around the drivers: a locked model, a current
// model for the time of a read, and the two forms tried in turn.
#include "model/current_model.h"
#include "steprt/model.h"
#include "steprt/read.h"
#include "steprt/standard.h"
#include "steprt/standard_write.h"
#include "steprt/write.h"
#include "write/standard_writer.h"
#include "xml/xml_reader.h"
#include "xml/xml_writer.h"

namespace {

// Locks the model and fills its error budget for the time of a transfer. At the end the model is neither locked nor
// changed, whatever the transfer returned and even if the client's code threw.
class TransferScope {
 public:
  explicit TransferScope(STEPmodel* model) : model_(model) {
    model_->errorsLeft = model_->errorLimit;
    model_->locked = true;
  }
  ~TransferScope() {
    model_->changed = false;
    model_->locked = false;
  }
  TransferScope(const TransferScope&) = delete;
  TransferScope& operator=(const TransferScope&) = delete;

 private:
  STEPmodel* const model_;
};

}  // namespace

// If the model is still empty after the clear-text pass, whatever that reported, the file is read again as XML, and the
// result is that of the XML pass.
int STEPmodel::Read(bool check, char* fileName) {
  Name(fileName);
  const TransferScope transfer(this);
  const steprt::CurrentModelScope current(this);
  const int errors = STEPread(name, schema, check);
  return first ? errors : steprt::STEPreadXml(name, schema, nullptr);
}

int STEPmodel::ReadStandard(const char* fileName, const STEPreadOptions* options) {
  Name(fileName);
  const TransferScope transfer(this);
  const steprt::CurrentModelScope current(this);
  return STEPreadStandard(name, nullptr, 0, schema, options);
}

int STEPmodel::ReadStandardFromMemory(const char* bytes, std::size_t size, const STEPreadOptions* options) {
  const TransferScope transfer(this);
  const steprt::CurrentModelScope current(this);
  return STEPreadStandard(name, bytes ? bytes : "", bytes ? size : 0, schema, options);
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

int STEPmodel::WriteStandard(const char* fileName, const STEPfileHeader* header, const STEPwriteOptions* options) {
  const TransferScope transfer(this);
  return STEPwriteStandard(fileName ? fileName : name, header, first, schema, options);
}

int STEPmodel::WriteStandardXml(const char* fileName, const STEPfileHeader* header, const STEPwriteOptions* options) {
  const TransferScope transfer(this);
  return steprt::WriteStandardFile(fileName ? fileName : name, header, first, schema, options, true);
}
