#include "xml/values/element.h"

#include <cstring>

#include "support/ascii.h"
#include "support/empty_text.h"

namespace steprt {
namespace {

constexpr int kWalked = 16;  // elements that are walked before an index is worth it

bool IsNamed(const STEPelement& element, std::string_view name, std::uint64_t key) {
  if (element.key != key) return false;
  return std::strcmp(element.name, name.data()) == 0 || EqualNoCase(element.name, name.data());
}

STEPelement* FindElement(STEPtransfer* t, std::string_view name) {
  const std::uint64_t key = NameKey(name);
  STEPelement** link = &t->elements;
  for (int i = 0; i < kWalked && *link; ++i, link = &(*link)->next) {
    if (IsNamed(**link, name, key)) return *link;
  }
  if (!*link) return nullptr;
  if (t->elementIndex.Extend(link)) return t->elementIndex.Find(name);
  STEPelement* element = *link;
  while (element && !IsNamed(*element, name, key)) element = element->next;
  return element;
}

}  // namespace

char* ElementValue(STEPtransfer* t, const char* name) {
  const STEPelement* element = FindElement(t, name);
  return element && element->value ? element->value : EmptyText();
}

}  // namespace steprt
