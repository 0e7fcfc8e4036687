#include "whole/reference/attributes.h"

#include <strings.h>

#include <charconv>

namespace steprt_test {
namespace {

const std::vector<std::string> kColourNames = {".RED.", ".GREEN.", ".BLUE."};

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

std::string RealText(double real) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, real).ptr};
}

std::string ItemText(const ReferenceItem& item) {
  if (!item.isObject) return item.text;
  if (item.place == kKeptPlace) return "kept";
  return item.text + (item.place == kNoPlace ? "null" : "@" + std::to_string(item.place));
}

int Position(const std::vector<std::string>& names, const std::string& text) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (strcasecmp(names[i].c_str(), text.c_str()) == 0) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

std::string ValueText(const ReferenceValue& value) {
  if (std::string("aApETPNX").find(value.kind) == std::string::npos) return ItemText(value.items[0]);
  if (!value.isMade) return "none";
  std::string text;
  for (const ReferenceItem& item : value.items) text += (text.empty() ? "" : ",") + ItemText(item);
  return "[" + text + "]";
}

void ReferenceAttributes::Read(const Attribute& attribute, int type, ReferenceValue& value) {
  value.kind = attribute.kind;
  switch (attribute.kind) {
    case 't':
      value.items.push_back({Quoted(Text())});
      break;
    case 'i':
      value.items.push_back({Integer()});
      break;
    case 'r':
      value.items.push_back({Real()});
      break;
    case 'b':
      value.items.push_back({Keyword({".F.", ".T."}, "bool") ? "T" : "F"});
      break;
    case 'l':
      value.items.push_back({std::to_string(Keyword({".U.", ".F.", ".T."}, "logical") - 1)});
      break;
    case 'e':
      value.items.push_back({std::to_string(Keyword(kColourNames, "enumeration"))});
      break;
    case 's':
      value.items.push_back({"none"});
      Select(value);
      break;
    case 'f':
      value.items.push_back({"", true, type == kProbe ? kKeptPlace : kNoPlace});
      Reference(attribute, value.items[0]);
      break;
    default:
      List(attribute, value);
  }
}

void ReferenceAttributes::Resolve() {
  for (const Fixup& fixup : fixups_) {
    const auto entry = table.find(fixup.number);
    if (entry == table.end()) {
      tokens_.Report("Unknown reference #" + std::to_string(fixup.number));
    } else {
      Store(*fixup.item, fixup.number, fixup.expected);
    }
  }
}

int ReferenceAttributes::NextAttribute() {
  if (lastToken == TOK_SEMI) return TOK_SEMI;
  int token = tokens_.Next();
  if (token == TOK_COMMA) token = tokens_.Next();
  if (token == TOK_SEMI) lastToken = TOK_SEMI;
  return token;
}

void ReferenceAttributes::Skip(int token) {
  if (token == TOK_SEMI) return tokens_.GiveBack(TOK_SEMI);
  if (token != TOK_OPEN && token != TOK_CLOSE) return;
  int next = tokens_.Next();
  while (token == TOK_OPEN && next != TOK_CLOSE && next != TOK_SEMI && next != TOK_EOF) next = tokens_.Next();
  if (next == TOK_SEMI) tokens_.GiveBack(TOK_SEMI);
}

// A reference to a number that has been met.
void ReferenceAttributes::Store(ReferenceItem& item, int number, int expected) {
  item.place = table.at(number);
  if (item.place == kNoPlace) return tokens_.Report("Reference to unknown object #" + std::to_string(number));
  if (!IsSubtype(expected, types[static_cast<std::size_t>(item.place) - 1]))
    tokens_.Report("Reference to wrong object type ''");
}

bool ReferenceAttributes::IsSubtype(int expected, int type) const {
  if (expected < 0 || expected == type) return true;
  for (const ReferenceRow& row : rows_) {
    if (row.type == type) return row.super != kNoType && IsSubtype(expected, row.super);
  }
  return false;
}

std::string ReferenceAttributes::Text() {
  const int token = NextAttribute();
  if (token == TOK_TEXT) return tokens_.text;
  if (token == TOK_NULL || token == TOK_SEMI) return "";
  tokens_.Report("Missing text");
  Skip(token);
  return "";
}

std::string ReferenceAttributes::Integer() {
  const int token = NextAttribute();
  if (token == TOK_INT) return std::to_string(tokens_.integer);
  if (token == TOK_SEMI) return "0";
  tokens_.Report("Missing integer");
  tokens_.GiveBack(token);
  return "0";
}

std::string ReferenceAttributes::Real() {
  const int token = NextAttribute();
  if (token == TOK_INT) return RealText(tokens_.integer);
  if (token == TOK_REAL) return RealText(tokens_.real);
  if (token == TOK_SEMI) return "0";
  tokens_.Report("Missing real");
  tokens_.GiveBack(token);
  return "0";
}

int ReferenceAttributes::Keyword(const std::vector<std::string>& names, const std::string& kind) {
  const int token = NextAttribute();
  if (token == TOK_NULL || token == TOK_SEMI) return 0;
  const int position = token == TOK_ENUM ? Position(names, tokens_.text) : -1;
  if (position >= 0) return position;
  tokens_.Report(token == TOK_ENUM ? "Unknown " + kind + " " + Quoted(tokens_.text) : "Missing " + kind);
  Skip(token);
  return 0;
}

// A number that stands for no instance is null here, and no type is expected.
void ReferenceAttributes::Select(ReferenceValue& value) {
  const int token = NextAttribute();
  ReferenceItem& item = value.items[0];
  if (token == TOK_SEMI) return;
  if (token == TOK_INT) {
    item = {"int " + std::to_string(tokens_.integer)};
  } else if (token == TOK_REAL) {
    item = {"real " + RealText(tokens_.real)};
  } else if (token == TOK_TEXT) {
    item = {"text " + Quoted(tokens_.text)};
  } else if (token == TOK_NULL || token == TOK_REF) {
    item = {"object ", true};
    if (token == TOK_NULL) return;
    const auto entry = table.find(tokens_.integer);
    if (entry != table.end()) item.place = entry->second;
    if (entry == table.end()) fixups_.push_front({tokens_.integer, kNoType, &item});
  } else {
    Skip(token);
    tokens_.Report("Missing reference");
  }
}

void ReferenceAttributes::Reference(const Attribute& attribute, ReferenceItem& item) {
  const int token = NextAttribute();
  if (token == TOK_SEMI) return;
  if (token == TOK_NULL) {
    item.place = kNoPlace;
  } else if (token != TOK_REF) {
    Skip(token);
    tokens_.Report("Missing reference");
  } else if (table.count(tokens_.integer) == 0) {
    fixups_.push_front({tokens_.integer, attribute.expected, &item});
  } else {
    Store(item, tokens_.integer, attribute.expected);
  }
}

// The kinds P, N and X are p, E and T without a list to put the items in.
void ReferenceAttributes::List(const Attribute& attribute, ReferenceValue& value) {
  const bool hasReferences = attribute.kind == 'a' || attribute.kind == 'A';
  const bool hasTexts = attribute.kind == 'T' || attribute.kind == 'X';
  int token = NextAttribute();
  if (token == TOK_SEMI) return;
  value.isMade = std::string("PNX").find(attribute.kind) == std::string::npos;
  if (token == TOK_NULL && hasReferences) return;
  if (token == TOK_OPEN) {
    do {
      token = tokens_.Next();
      if (token == TOK_COMMA) token = tokens_.Next();
      if (token == TOK_CLOSE) return;
    } while (TakeItem(attribute, token, value.items));
    Skip(TOK_OPEN);
  }
  Skip(token);
  tokens_.Report(hasReferences ? "Missing reference" : hasTexts ? "Missing text in list" : "Missing primitive in list");
}

bool ReferenceAttributes::TakeItem(const Attribute& attribute, int token, std::deque<ReferenceItem>& items) {
  switch (attribute.kind) {
    case 'a':
    case 'A':
      return TakeReference(attribute, token, items);
    case 'E':
    case 'N':
      return TakeEnumerator(token, items);
    case 'T':
    case 'X':
      if (token == TOK_TEXT) items.push_back({Quoted(tokens_.text)});
      return token == TOK_TEXT;
    default:
      if (token == TOK_NULL) items.push_back({"0"});
      if (token == TOK_INT) items.push_back({RealText(tokens_.integer)});
      if (token == TOK_REAL) items.push_back({RealText(tokens_.real)});
      return token == TOK_NULL || token == TOK_INT || token == TOK_REAL;
  }
}

// One to an instance that was not made is left out of the list.
bool ReferenceAttributes::TakeReference(const Attribute& attribute, int token, std::deque<ReferenceItem>& items) {
  if (token == TOK_NULL && attribute.kind == 'a') return false;
  if (token != TOK_NULL && token != TOK_REF) return false;
  items.push_back({"", true});
  if (token == TOK_NULL) return true;
  if (table.count(tokens_.integer) == 0) {
    fixups_.push_front({tokens_.integer, attribute.expected, &items.back()});
    return true;
  }
  Store(items.back(), tokens_.integer, attribute.expected);
  if (items.back().place == kNoPlace) items.pop_back();
  return true;
}

bool ReferenceAttributes::TakeEnumerator(int token, std::deque<ReferenceItem>& items) {
  if (token != TOK_ENUM && token != TOK_NULL) return false;
  const int position = token == TOK_ENUM ? Position(kColourNames, tokens_.text) : 0;
  if (position < 0) tokens_.Report("Unknown enumeration " + Quoted(tokens_.text));
  items.push_back({std::to_string(position < 0 ? 0 : position)});
  return true;
}

}  // namespace steprt_test
