#include "xml/values/element.h"

#include "read/transfer/read_store.h"
#include "support/empty_text.h"

namespace steprt {

char* ElementValue(STEPtransfer* t, const char* name) {
  const STEPelement* element = t->store->childElements.Find(name);
  return element && element->value ? element->value : EmptyText();
}

}  // namespace steprt
