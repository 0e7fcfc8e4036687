// The frame of a standard file in XML:
//
//   <?xml version="1.0" encoding="UTF-8"?>
//   <SCHEMA iso-10303-21="clear-text">
//   	<header.section rid="#0"><FILE_DESCRIPTION>...</FILE_DESCRIPTION>...</header.section>
//   	<NAME rid="#1">...</NAME>
//   </SCHEMA>
//
// A reader of the library's own form passes over the header, as an entity that its schema does not have.
#include "write/wide_document.h"

#include "schema/chain.h"
#include "support/ascii.h"
#include "write/frame.h"
#include "write/values.h"
#include "write/wide_values.h"
#include "xml/values/names.h"

namespace steprt {
namespace {

// Writes a keyword as the name of an element. What cannot be in one is replaced.
void PutElementName(STEPtransfer* t, const char* keyword) {
  OutputFile& out = *t->file.out;
  if (*keyword == '!') {
    out.Put(kUserDefinedPrefix);
    ++keyword;
  } else if (!IsLetter(*keyword) && *keyword != '_') {
    out.Put('_');
  }
  for (; *keyword; ++keyword) {
    const char c = *keyword;
    out.Put(IsLetter(c) || IsDigit(c) || c == '.' || c == '-' ? c : '_');
  }
}

}  // namespace

void BeginEntity(STEPtransfer* t, const char* keyword) {
  const WideWrite& wide = *t->wideWrite;
  Put(t, {wide.isPart ? "<" : "\t<"});
  PutElementName(t, keyword);
  if (!wide.isPart) {
    Put(t, {" rid=\""});
    PutName(t, wide.name);
    Put(t, {"\""});
  }
  Put(t, {">"});
}

void EndEntity(STEPtransfer* t, const char* keyword) {
  Put(t, {"</"});
  PutElementName(t, keyword);
  Put(t, {">"});
}

void BeginDocument(STEPtransfer* t) {
  Put(t, {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>"});
  PutLineEnd(t);
  Put(t, {"<", NameOf(*t->schema), " ", kFormAttribute, "=\"", kFormOfValues, "\">"});
  PutLineEnd(t);
}

void EndDocument(STEPtransfer* t) {
  Put(t, {"</", NameOf(*t->schema), ">"});
  PutLineEnd(t);
}

}  // namespace steprt
