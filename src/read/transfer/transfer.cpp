#include "read/transfer/transfer.h"

#include <cstring>
#include <new>

#include "read/transfer/read_store.h"
#include "read/transfer/report.h"
#include "steprt/text.h"
#include "support/file_name.h"
#include "support/memory.h"

namespace steprt {
namespace {

TransferOwner Begin(const char* operation, decltype(NewTransfer)* make, const char* fileName, APPobject0* schema,
                    bool xml) {
  TextBuffer buffer;
  TransferOwner t = make(DefaultFileName(buffer, fileName), ErrorProcOf(schema), schema, xml);
  if (t) Copy(t->where, operation, kWhereLimit);
  return t;
}

}  // namespace

TransferOwner BeginRead(const char* fileName, APPobject0* schema, bool xml) {
  return Begin("Read", NewReadTransfer, fileName, schema, xml);
}

TransferOwner BeginWrite(const char* fileName, APPobject0* schema, bool xml) {
  return Begin("Write", NewTransfer, fileName, schema, xml);
}

TransferOwner NewTransfer(const char* fileName, STEPerrorProc errorProc, APPobject0* schema, bool xml) {
  if (!fileName) return nullptr;
  const std::size_t nameSize = std::strlen(fileName) + 1;
  void* memory = ::operator new(sizeof(STEPtransfer) + nameSize, std::nothrow);
  if (!memory) return nullptr;
  auto* t = new (memory) STEPtransfer(errorProc, schema, xml);
  t->fileName = static_cast<char*>(memory) + sizeof(STEPtransfer);
  std::memcpy(t->fileName, fileName, nameSize);
  return TransferOwner(t);
}

TransferOwner NewReadTransfer(const char* fileName, STEPerrorProc errorProc, APPobject0* schema, bool xml) {
  TransferOwner t = NewTransfer(fileName, errorProc, schema, xml);
  if (!t) return nullptr;
  t->store = MakeOrNull<ReadStore>(t.get());
  if (!t->store) return nullptr;
  return t;
}

void FreeTransfer(STEPtransfer* t) {
  DeleteTextAggr(t->schemas);
  delete t->store;
  t->~STEPtransfer();
  ::operator delete(t);
}

void DeleteTextAggr(STEPaggr* aggr) {
  if (!aggr) return;
  for (STEPlist* node = aggr->head; node; node = node->next) delete[] node->value.text;
  DeleteSTEPlist(&aggr->head);
  delete aggr;
}

}  // namespace steprt
