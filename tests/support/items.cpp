#include "support/items.h"

#include "support/proj_schema.h"

namespace steprt_test {

std::string ReadItem(STEPtransfer* t, const char* name) {
  const STEPitem kind = rSTEPkind(t, name);
  if (kind == STEP_TEXT) return Quoted(rSTEPtext(t, name));
  if (kind == STEP_OTHER) return std::string("?") + rSTEPtoken(t, name);
  if (kind != STEP_TYPED && kind != STEP_LIST) return rSTEPtoken(t, name);
  const char* keyword = rSTEPopen(t, name);
  if (!keyword) return "?deep";
  std::string text = keyword + std::string("(");
  while (rSTEPkind(t, nullptr) != STEP_END) {
    if (text.back() != '(') text += ',';
    text += ReadItem(t, nullptr);
  }
  rSTEPclose(t);
  return text + ")";
}

void WriteItem(STEPtransfer* t, const char* name, std::string& text) {
  const std::size_t end = text.find_first_of("(),");
  if (text[0] == '\'') {
    const std::string value = text.substr(1, text.find('\'', 1) - 1);
    wSTEPtext(t, name, value.c_str());
    text.erase(0, value.size() + 2);
  } else if (end == std::string::npos || text[end] != '(') {
    wSTEPtoken(t, name, text.substr(0, end).c_str());
    text.erase(0, end);
  } else {
    const std::string keyword = text.substr(0, end);
    wSTEPopen(t, name, keyword.empty() ? nullptr : keyword.c_str());
    text.erase(0, end + 1);
    while (text[0] != ')') {
      WriteItem(t, nullptr, text);
      if (text[0] == ',') text.erase(0, 1);
    }
    wSTEPclose(t);
    text.erase(0, 1);
  }
}

const char* const kItems = R"(
  $
  *
  "1A"
  (1.,2.)
  ((1.,2.),(),($))
  IFCLABEL('x')
  IFCLABEL('a<b & c>d')
  A(B('x',C()),.T.,#12)
)";

}  // namespace steprt_test
