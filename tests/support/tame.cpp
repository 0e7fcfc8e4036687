#include "support/tame.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host/plain_host.h"

namespace steprt_test {
namespace {

// XML has no control characters but three, and a carriage return comes back as a line feed.
void TameText(Form form, char* text) {
  for (; form == Form::kXml && *text; ++text) {
    if (static_cast<unsigned char>(*text) < 0x20 && *text != '\t' && *text != '\n') *text = '?';
  }
}

// Six digits are kept, an infinity is no number in a file, and a negative zero comes back as the integer 0.
double TameReal(double real) {
  if (!std::isfinite(real) || real == 0.0) return 0.0;
  const PlainHost plain;
  char text[32];
  std::snprintf(text, sizeof text, "%.6g", real);
  return std::strtod(text, nullptr);
}

// An instance without a record has a number that nobody knows.
STEPheader* TameReference(STEPheader* object) {
  return object && (object->type == kNote || !object->Model()) ? nullptr : object;
}

// A whole number comes back as an integer. In XML the shape of a bare text may be that of something else, and an empty
// one is nothing; one that begins with an apostrophe is a text.
void TameSelect(Form form, STEPselect& select) {
  const STEPselect::SelType type = select.Type();
  if (type == STEPselect::SEL_NONE) select.SetSTEPobj(nullptr);
  if (type == STEPselect::SEL_OBJ) select.SetSTEPobj(TameReference(select.GetSTEPobj()));
  char* text = select.GetCharPtr();
  if (text) TameText(form, text);
  if (text && form == Form::kXml) {
    select.SetCharPtr(std::strcpy(new char[std::strlen(text) + 2], ("'" + std::string(text)).c_str()));
    delete[] text;
  }
  if (type != STEPselect::SEL_REAL) return;
  const double real = TameReal(select.GetReal());
  const bool isWhole = real == std::trunc(real) && std::fabs(real) < 1e6;
  isWhole ? select.SetInt(static_cast<int>(real)) : select.SetReal(real);
}

void TameNode(Form form, char kind, STEPlist& node) {
  if (kind == 'p') node.value.real = TameReal(node.value.real);
  if (kind == 'a' || kind == 'A') node.value.object = TameReference(node.value.object);
  if (kind != 'T') return;
  TameText(form, node.value.text);
  for (char* c = node.value.text; form == Form::kXml && *c; ++c) {
    if (*c == '\'') *c = '?';  // it ends the item
  }
}

// An absent list is written like an empty one. A list of enumerators has no place in a document, and a list of
// references without `$` no place for what is null.
void TameList(Form form, char kind, STEPaggr*& list) {
  if (!list) list = new STEPaggr;
  if (form == Form::kXml && kind == 'E') return DeleteSTEPlist(&list->head);
  for (STEPlist* node = list->head; node; node = node->next) TameNode(form, kind, *node);
  while (kind == 'a' && list->Delete(static_cast<STEPheader*>(nullptr))) continue;
}

void TameValue(Form form, char kind, Value& value) {
  if (kind == 't') TameText(form, value.text.data());
  if (kind == 'r') value.real = TameReal(value.real);
  if (kind == 's') TameSelect(form, value.select);
  if (kind == 'f') value.object = TameReference(value.object);
  if (std::strchr("aApET", kind)) TameList(form, kind, value.list);
}

}  // namespace

void Tame(ProjModel& model, Form form) {
  for (STEPheader* object = model.Inst(); object; object = object->next) {
    auto* entity = static_cast<Entity*>(object);
    for (std::size_t i = 0; i < entity->shape.size(); ++i) TameValue(form, entity->shape[i].kind, entity->values[i]);
  }
  while (STEPheader* unwritten = model.FindFirst(kNote)) delete unwritten;
  model.SetChanged(false);
}

}  // namespace steprt_test
