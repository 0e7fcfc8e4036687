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

// Writes a keyword as the name of an element. What cannot be in a keyword is replaced, as in clear text: a dot is only
// in the names of xml/values/names.h.
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
    out.Put(IsLetter(c) || IsDigit(c) ? c : '_');
  }
}

void PutOwnName(STEPtransfer* t, const char* name) { Put(t, {name}); }

using NameWriter = void (*)(STEPtransfer* t, const char* name);

void Begin(STEPtransfer* t, NameWriter putName, const char* name) {
  const WideWrite& wide = *t->wideWrite;
  Put(t, {wide.isPart ? "<" : "\t<"});
  putName(t, name);
  if (!wide.isPart) {
    Put(t, {" rid=\""});
    PutName(t, wide.name);
    Put(t, {"\""});
  }
  Put(t, {">"});
}

void End(STEPtransfer* t, NameWriter putName, const char* name) {
  Put(t, {"</"});
  putName(t, name);
  Put(t, {">"});
}

}  // namespace

void BeginEntity(STEPtransfer* t, const char* keyword) { Begin(t, PutElementName, keyword); }
void EndEntity(STEPtransfer* t, const char* keyword) { End(t, PutElementName, keyword); }
void BeginFrame(STEPtransfer* t, const char* name) { Begin(t, PutOwnName, name); }
void EndFrame(STEPtransfer* t, const char* name) { End(t, PutOwnName, name); }

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
