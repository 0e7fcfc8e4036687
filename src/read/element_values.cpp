#include "read/element_values.h"

#include <cstring>
#include <string_view>

#include "read/transfer/read_store.h"
#include "read/transfer/wide_read.h"
#include "support/ascii.h"
#include "support/empty_text.h"

namespace steprt {
namespace {

constexpr std::size_t kNameLimit = 63;  // see STEPelement

bool IsBareText(const char* text) { return *text == '\0' || (IsLetter(*text) && !std::strpbrk(text, "('")); }

// Whether nothing of the current value has been read. At the end of a value the block may be an empty one.
bool IsUntouched(const STEPtransfer* t) {
  const InputFile& in = *t->file.in;
  return t->pushedToken != kNoToken || (in.Cursor() == in.Begin() && in.Limit() != in.Begin());
}

void EnterBareText(STEPtransfer* t, char* text) {
  EnterText(t, " ");
  t->file.in->Get();  // so that it is not untouched once it has been read
  t->pushedToken = TOK_TEXT;
  t->value.text = text;
}

void EnterElement(STEPtransfer* t, const STEPelement* element) {
  ElementCursor& elements = t->wide->elements;
  elements.current = element;
  if (!element) return;
  elements.next = element->next;
  char* text = element->value ? element->value : EmptyText();
  if (IsBareText(text)) return EnterBareText(t, text);
  EnterText(t, text);
}

}  // namespace

void EnterText(STEPtransfer* t, const char* text) {
  t->file.in->Restart(text);
  t->pushedToken = t->lastToken = kNoToken;
  t->items.isListAsked = false;
  t->wide->wordEnd = nullptr;
}

void BeginElementValues(STEPtransfer* t) {
  t->wide->elements = {nullptr, t->elements};
  EnterText(t, "");
}

void EnterElementValue(STEPtransfer* t, const char* name) {
  ElementCursor& elements = t->wide->elements;
  if (name) {
    EnterElement(t, t->store->childElements.Find(std::string_view(name).substr(0, kNameLimit)));
    if (!elements.current) EnterText(t, "$");
    return;
  }
  if (elements.current && IsUntouched(t)) return;
  EnterElement(t, elements.next);
  if (!elements.current) EnterText(t, "");
}

}  // namespace steprt
