#include "write/frame.h"

#include "platform/clock.h"
#include "schema/chain.h"
#include "steprt/write.h"
#include "support/text_buffer.h"

namespace steprt {
namespace {

constexpr char kOriginator[] = "QVN";

// With a leading zero below 10.
void AddTwoDigits(TextBuffer& text, int number) {
  if (number < 10) text.Add('0');
  text.Add(number);
}

}  // namespace

void Put(STEPtransfer* t, std::initializer_list<std::string_view> pieces) {
  for (const std::string_view piece : pieces) t->file.out->Put(piece);
}

void PutFileDescription(STEPtransfer* t, const char* remark) {
  Put(t, {"FILE_DESCRIPTION(('", NameOf(*t->schema), " model', 'TOVARIN version ", STEPversion(), "','", kOriginator,
          "','", remark, "'));"});
}

// The date is that of the host's time zone. Day and year have no leading zeros, and there are no seconds.
void PutFileName(STEPtransfer* t, const char* shownName) {
  const DateAndTime now = LocalNow();
  TextBuffer date;
  date.Add(now.day).Add('.');
  AddTwoDigits(date, now.month);
  date.Add('.').Add(now.year).Add(' ');
  AddTwoDigits(date, now.hour);
  date.Add('.');
  AddTwoDigits(date, now.minute);
  Put(t, {"FILE_NAME('", shownName, "','", date.Text(), "');"});
}

void EndFile(STEPtransfer* t, std::initializer_list<std::string_view> tail) {
  OutputFile& out = *t->file.out;
  out.CutBackToMark();
  out.PutTail(tail);
  out.MakeTailFit(tail);
}

}  // namespace steprt

const char* STEPversion() { return "7, 7, 10, 29"; }
