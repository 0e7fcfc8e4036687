// The XML form of a written file.
//
//   <?xml version="1.0" encoding="ISO-8859-1" ?>
//   <!-- FILE_DESCRIPTION(...); -->
//   <!-- FILE_NAME(...); -->
//   <SCHEMA>
//   	<NAME rid="#1">...</NAME>
//   </SCHEMA>
#include "xml/xml_writer.h"

#include "platform/output_file.h"
#include "schema/chain.h"
#include "support/file_name.h"
#include "write/driver.h"
#include "write/frame.h"
#include "write/values.h"

namespace steprt {
namespace {

// The encoding is only a claim: texts are written as they are in memory.
void PutHead(STEPtransfer* t, const char* shownName, const char* remark) {
  Put(t, {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n<!-- "});
  PutFileDescription(t, remark);
  Put(t, {" -->\n<!-- "});
  PutFileName(t, shownName);
  Put(t, {" -->\n<", NameOf(*t->schema), ">\n"});
}

void OpenEntity(STEPtransfer* t, std::string_view name, int number) {
  OutputFile& out = *t->file.out;
  out.PutLiteral("\t<");
  out.Put(name);
  out.PutLiteral(" rid=\"");
  PutNumber(t, number);
  out.PutLiteral("\">");
}

void CloseEntity(STEPtransfer* t, std::string_view name) {
  OutputFile& out = *t->file.out;
  out.PutLiteral("</");
  out.Put(name);
  out.PutLiteral(">\n");
}

void PutTail(STEPtransfer* t) { EndFile(t, {"</", NameOf(*t->schema), ">\n"}); }

constexpr int kFirstEntityLine = 5;  // see the form above

constexpr FileForm kXml = {
    .xml = true,
    .sharing = OutputFile::Sharing::kAll,
    .spellName = CommentFileName,
    .putHead = PutHead,
    .firstLine = kFirstEntityLine,
    .openRecord = OpenEntity,
    .closeRecord = CloseEntity,
    .putTail = PutTail,
};

}  // namespace

int STEPwriteXml(char* fileName, const char* remark, STEPheader* first, APPobject0* schema) {
  return WriteFile(kXml, fileName, remark, first, schema);
}

}  // namespace steprt
