#include "read/transfer/transfer.h"

#include <cstring>
#include <new>

namespace steprt {

TransferOwner NewTransfer(const char* fileName, STEPerrorProc errorProc, APPobject0* schema, bool xml) {
  if (!fileName) return nullptr;
  const std::size_t nameSize = std::strlen(fileName) + 1;
  void* room = ::operator new(sizeof(STEPtransfer) + nameSize, std::nothrow);
  if (!room) return nullptr;
  auto* t = new (room) STEPtransfer(errorProc, schema, xml);
  t->fileName = static_cast<char*>(room) + sizeof(STEPtransfer);
  std::memcpy(t->fileName, fileName, nameSize);
  return TransferOwner(t);
}

void FreeTransfer(STEPtransfer* t) {
  DeleteTextAggr(t->schemas);
  t->~STEPtransfer();  // releases fixups, entries and elements, which their owners hold
  ::operator delete(t);
}

void DeleteTextAggr(STEPaggr* aggr) {
  if (!aggr) return;
  for (STEPlist* node = aggr->head; node; node = node->next) delete[] node->value.text;
  DeleteSTEPlist(&aggr->head);
  delete aggr;
}

}  // namespace steprt
