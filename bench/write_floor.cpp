#include "write_floor.h"

#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <cstring>
#include <string_view>

#include "building.h"

namespace bench {
namespace {

constexpr std::size_t kIntegerRoom = 16;
constexpr std::size_t kRealBuffer = 32;

class Printer {
 public:
  explicit Printer(char* at) : p_(at) {}

  const char* At() const { return p_; }

  void Put(std::string_view text) {
    std::memcpy(p_, text.data(), text.size());
    p_ += text.size();
  }

  void Begin(STEPheader* object, std::string_view keyword) {
    PutNumber(object);
    Put(" = ");
    Put(keyword);
    *p_++ = '(';
    isFirst_ = true;
  }

  void String(const char*, Text& text) {
    Separate();
    if (!text.chars) return PutChar('$');
    PutChar('\'');
    for (const char* c = text.chars; *c != '\0'; ++c) {
      if (*c == '\'') PutChar('\'');
      PutChar(*c);
    }
    PutChar('\'');
  }
  void Integer(const char*, int& value) {
    Separate();
    p_ = std::to_chars(p_, p_ + kIntegerRoom, value).ptr;
  }
  void Real(const char*, double& value) {
    Separate();
    p_ = std::to_chars(p_, p_ + kRealBuffer, value, std::chars_format::general, 6).ptr;
  }
  void Enumerator(const char*, int& value, const char** names, int) {
    Separate();
    Put(names[value]);
  }
  void Reference(const char*, STEPheader*& slot, int) {
    Separate();
    if (!slot) return PutChar('$');
    PutNumber(slot);
  }
  void Reals(const char*, List& list) {
    ForEachItem(list, [this](STEPlist* node) { Real("", node->value.real); });
  }
  void References(const char*, List& list, int expected) {
    ForEachItem(list, [=, this](STEPlist* node) { Reference("", node->value.object, expected); });
  }

 private:
  void PutChar(char c) { *p_++ = c; }

  void Separate() {
    if (!isFirst_) PutChar(',');
    isFirst_ = false;
  }

  void PutNumber(STEPheader* object) {
    if (object->number == 0) object->number = ++lastNumber_;
    PutChar('#');
    p_ = std::to_chars(p_, p_ + kIntegerRoom, object->number).ptr;
  }

  template <typename PutItem>
  void ForEachItem(List& list, PutItem putItem) {
    Separate();
    PutChar('(');
    isFirst_ = true;
    for (STEPlist* node = list.aggr->head; node; node = node->next) putItem(node);
    PutChar(')');
    isFirst_ = false;
  }

  char* p_;
  int lastNumber_ = 0;
  bool isFirst_ = true;
};

constexpr std::size_t kFrameRoom = 4096;

}  // namespace

WriteFloor::WriteFloor(std::size_t bytes) : room_(std::make_unique<char[]>(bytes + kFrameRoom)) {}

void WriteFloor::Write(const std::string& path, STEPheader* first) {
  Printer printer(room_.get());
  printer.Put(
      "ISO-10303-21;\n\nHEADER;\nFILE_DESCRIPTION(('IFC2X3 model', 'TOVARIN version 7, 7, 10, 29','QVN',''));\n");
  printer.Put("FILE_NAME('','5.03.2026 09.07');\nFILE_SCHEMA(('IFC2X3'));\nENDSEC;\n\nDATA;\n");
  for (STEPheader* object = first; object; object = object->next) object->number = 0;
  for (STEPheader* object = first; object; object = object->next) {
    WithClass(object, [&](auto& entity) {
      printer.Begin(&entity, entity.kKeyword);
      entity.Attributes(printer);
      printer.Put(");\n");
    });
  }
  printer.Put("ENDSEC;\n\nEND-ISO-10303-21;\n");
  const int handle = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  const char* at = room_.get();
  while (at != printer.At()) {  // one call, unless the system takes less
    const ssize_t count = ::write(handle, at, static_cast<std::size_t>(printer.At() - at));
    if (count <= 0) break;
    at += count;
  }
  ::close(handle);
}

}  // namespace bench
