#include "write_floor.h"

#include <cstring>
#include <string_view>

#include "block_printer.h"
#include "building.h"

namespace bench {
namespace {

class Printer : public BlockPrinter {
 public:
  using BlockPrinter::BlockPrinter;

  void Begin(STEPheader* object, std::string_view keyword) {
    MakeSpace();
    PutNumber(object);
    Put(" = ");
    Put(keyword);
    PutChar('(');
    isFirst_ = true;
  }

  void String(const char*, Text& text) {
    Separate();
    if (!text.chars) return PutChar('$');
    PutChar('\'');
    const char* rest = text.chars;
    while (const char* apostrophe = std::strchr(rest, '\'')) {
      Put(std::string_view(rest, static_cast<std::size_t>(apostrophe + 1 - rest)));
      PutChar('\'');
      rest = apostrophe + 1;
    }
    Put(rest);
    PutChar('\'');
  }
  void Integer(const char*, int& value) {
    Separate();
    PutInteger(value);
  }
  void Real(const char*, double& value) {
    Separate();
    PutReal(value);
  }
  void Enumerator(const char*, int& value, const char** names, int) {
    Separate();
    Put(names[value]);
  }
  void Reference(const char*, STEPheader*& slot, int) {
    Separate();
    slot ? PutNumber(slot) : PutChar('$');
  }
  void Reals(const char*, List& list) {
    ForEachItem(list, [this](STEPlist* node) { Real("", node->value.real); });
  }
  void References(const char*, List& list, int expected) {
    ForEachItem(list, [=, this](STEPlist* node) { Reference("", node->value.object, expected); });
  }

 private:
  void Separate() {
    MakeSpace();
    if (!isFirst_) PutChar(',');
    isFirst_ = false;
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

  bool isFirst_ = true;
};

}  // namespace

void WriteFloor(const std::string& path, STEPheader* first) {
  Printer printer(path);
  printer.Put(
      "ISO-10303-21;\n\nHEADER;\nFILE_DESCRIPTION(('IFC2X3 model', 'TOVARIN version 7, 7, 10, 29','QVN',''));\n");
  printer.Put("FILE_NAME('','5.03.2026 09.07');\nFILE_SCHEMA(('IFC2X3'));\nENDSEC;\n\nDATA;\n");
  ForEachUnnumbered(first, [&](STEPheader* object) {
    WithClass(object, [&](auto& entity) {
      printer.Begin(&entity, entity.kKeyword);
      entity.Attributes(printer);
      printer.Put(");\n");
    });
  });
  printer.Put("ENDSEC;\n\nEND-ISO-10303-21;\n");
}

}  // namespace bench
