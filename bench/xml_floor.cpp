#include "xml_floor.h"

#include <expat.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <string_view>

#include "block_printer.h"
#include "building.h"

namespace bench {
namespace {

void XMLCALL OnStart(void* count, const XML_Char*, const XML_Char**) { ++*static_cast<long*>(count); }
void XMLCALL OnEnd(void*, const XML_Char*) {}
void XMLCALL OnText(void*, const XML_Char*, int) {}

bool ParseBlocks(XML_Parser parser, int handle, int blockSize) {
  for (;;) {
    void* block = XML_GetBuffer(parser, blockSize);
    const ssize_t count = block ? ::read(handle, block, static_cast<std::size_t>(blockSize)) : -1;
    if (count < 0 || XML_ParseBuffer(parser, static_cast<int>(count), count == 0) != XML_STATUS_OK) return false;
    if (count == 0) return true;
  }
}

class Printer : public BlockPrinter {
 public:
  using BlockPrinter::BlockPrinter;

  void Begin(STEPheader* object, std::string_view keyword) {
    MakeSpace();
    Put("\t<");
    Put(keyword);
    Put(" rid=\"");
    PutNumber(object);
    Put("\">");
  }
  void End(std::string_view keyword) {
    Put("</");
    Put(keyword);
    Put(">\n");
  }

  void String(std::string_view name, Text& text) {
    Element(name, [&] { text.chars ? PutEscaped(text.chars) : PutChar('$'); });
  }
  void Integer(std::string_view name, int& value) {
    Element(name, [&] { PutInteger(value); });
  }
  void Real(std::string_view name, double& value) {
    Element(name, [&] { PutReal(value); });
  }
  void Enumerator(std::string_view name, int& value, const char** names, int) {
    Element(name, [&] { Put(names[value]); });
  }
  void Reference(std::string_view name, STEPheader*& slot, int) {
    Element(name, [&] { slot ? PutNumber(slot) : PutChar('$'); });
  }
  void Reals(std::string_view name, List& list) {
    Items(name, list, ';', [&](STEPlist* node) { PutReal(node->value.real); });
  }
  void References(std::string_view name, List& list, int) {
    Items(name, list, ' ', [&](STEPlist* node) { PutNumber(node->value.object); });
  }

 private:
  void PutEscaped(const char* text) {
    for (;;) {
      const std::size_t plain = std::strcspn(text, "&<>");
      Put(std::string_view(text, plain));
      text += plain;
      if (*text == '\0') return;
      Put(*text == '&' ? "&amp;" : *text == '<' ? "&lt;" : "&gt;");
      ++text;
    }
  }

  template <typename PutValue>
  void Element(std::string_view name, PutValue putValue) {
    MakeSpace();
    PutChar('<');
    Put(name);
    PutChar('>');
    putValue();
    Put("</");
    Put(name);
    PutChar('>');
  }

  template <typename PutItem>
  void Items(std::string_view name, List& list, char separator, PutItem putItem) {
    Element(name, [&] {
      for (STEPlist* node = list.aggr->head; node; node = node->next) {
        MakeSpace();
        putItem(node);
        if (node->next) PutChar(separator);
      }
    });
  }
};

}  // namespace

long ParseXmlFloor(const std::string& path, int blockSize) {
  const int handle = ::open(path.c_str(), O_RDONLY);
  const XML_Parser parser = XML_ParserCreate(nullptr);
  long count = 0;
  XML_SetUserData(parser, &count);
  XML_SetElementHandler(parser, OnStart, OnEnd);
  XML_SetCharacterDataHandler(parser, OnText);
  const bool isSound = ParseBlocks(parser, handle, blockSize);
  XML_ParserFree(parser);
  ::close(handle);
  return isSound ? count : 0;
}

bool ParseAtOnce(const std::string& path) {
  return ParseXmlFloor(path, static_cast<int>(std::filesystem::file_size(path))) > 0;
}

void XmlWriteFloor(const std::string& path, STEPheader* first) {
  Printer printer(path);
  printer.Put("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n");
  printer.Put("<!-- FILE_DESCRIPTION(('IFC2X3 model', 'TOVARIN version 7, 7, 10, 29','QVN','')); -->\n");
  printer.Put("<!-- FILE_NAME('','5.03.2026 09.07'); -->\n<IFC2X3>\n");
  ForEachUnnumbered(first, [&](STEPheader* object) {
    WithClass(object, [&](auto& entity) {
      printer.Begin(&entity, entity.kKeyword);
      entity.Attributes(printer);
      printer.End(entity.kKeyword);
    });
  });
  printer.Put("</IFC2X3>\n");
}

}  // namespace bench
