#include "tame.h"

#include <cmath>
#include <cstring>

namespace fuzz {
namespace {

// XML has no control characters but three, and a carriage return comes back as a line feed.
void MakeXmlCharacter(char& c) {
  const auto code = static_cast<unsigned char>(c);
  if (code < 0x20 && c != '\t' && c != '\n') c = '?';
}

}  // namespace

void TameText(Form form, std::string& text) {
  if (form != Form::kXml) return;
  for (char& c : text) MakeXmlCharacter(c);
}

// An infinity is no number in a file, and a negative zero comes back as the integer 0.
void TameReal(double& real) {
  if (!std::isfinite(real) || real == 0.0) real = 0.0;
}

// An instance without a record has a number that nobody knows.
void TameReference(STEPheader*& object) {
  if (object && !IsWritten(object)) object = nullptr;
}

// In XML the shape of a bare text may be that of something else; one that begins with an apostrophe is a text.
void TameSelect(Form form, STEPselect& select) {
  if (select.tag == STEPselect::SEL_OBJ) return TameReference(select.value.object);
  if (select.tag == STEPselect::SEL_REAL) return TameReal(select.value.real);
  if (select.tag != STEPselect::SEL_TEXT || form != Form::kXml) return;
  for (char* c = select.value.text; *c; ++c) MakeXmlCharacter(*c);
  if (select.value.text[0] != '\0') {
    select.value.text[0] = '\'';
    return;
  }
  delete[] select.value.text;
  select.SetSTEPobj(nullptr);
}

void TameReferences(STEPaggr* aggr, NullMembers nullMembers) {
  if (!aggr) return;
  for (STEPlist* node = aggr->head; node; node = node->next) TameReference(node->value.object);
  STEPlist** link = &aggr->head;
  while (STEPlist* node = *link) {
    if (node->value.object || nullMembers == NullMembers::kKeep) {
      link = &node->next;
      continue;
    }
    *link = node->next;
    delete node;
  }
}

void TameReals(STEPaggr* aggr) {
  for (STEPlist* node = aggr ? aggr->head : nullptr; node; node = node->next) TameReal(node->value.real);
}

void TameTexts(Form form, STEPaggr* aggr) {
  if (form != Form::kXml) return;
  for (STEPlist* node = aggr ? aggr->head : nullptr; node; node = node->next) {
    for (char* c = node->value.text; *c; ++c) {
      MakeXmlCharacter(*c);
      if (*c == '\'') *c = '?';  // it ends the item
    }
  }
}

}  // namespace fuzz
