#include "schema/chain.h"

#include "schema/generation.h"
#include "support/ascii.h"

namespace steprt {

APPobject0* FindSchema(APPobject0* chain, const char* name) {
  while (chain && !EqualNoCase(NameOf(*chain), name)) chain = chain->next;
  return chain;
}

void AppendSchema(APPobject0* chain, APPobject0* added) {
  while (chain->next) chain = chain->next;
  chain->next = added;
  added->next = nullptr;
  NoteChange(added);
}

}  // namespace steprt
