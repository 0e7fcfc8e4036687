// Reads any standard file without knowing its schema, counts its records by keyword, changes the names of persons, and
// writes all of it under the names that the records had.
//
//   filter [FOLDER]
//
// Every record becomes a steprt::AnyRecord: its keyword, and its values as they are in the file. A program that knows
// some entities has classes for them in its schema; only the other ones become AnyRecords then.
#include <cstdio>
#include <fstream>
#include <map>
#include <string>

#include "steprt/any_record.h"

namespace {

using steprt::AnyRecord;

const char kFile[] =
    "ISO-10303-21;\n"
    "HEADER;\n"
    "FILE_DESCRIPTION(('a site'),'2;1');\n"
    "FILE_NAME('site.stp','2026-11-25T16:29:00',('Ada'),('Hill & Co'),'','','');\n"
    "FILE_SCHEMA(('PROJ { 1 0 10303 99 }'));\n"
    "ENDSEC;\n"
    "DATA; /* as another system writes it */\n"
    "#1=WALL('North wall',#4,LENGTH(2.5),(#2,#7));\n"
    "#2=DOOR('Front door',#4,*,.LEFT.);\n"
    "#4=PERSON('Ada',36);\n"
    "#5=(NAMED('Hill')SITE(.T.,#4));\n"
    "ENDSEC;\n"
    "END-ISO-10303-21;\n";

// A schema without a class: every record is one of an unknown entity.
APPtable noSchema("", {APPentity{nullptr, nullptr, nullptr, 0, nullptr}}, [](const char*) {});

void Show(const STEPdiagnostic* diagnostic, void* /*context*/) {
  std::printf("%s:%d:%d: %s [%s] in #%llu\n", diagnostic->file, diagnostic->line, diagnostic->column,
              diagnostic->message, diagnostic->code, static_cast<unsigned long long>(diagnostic->instance));
}

// Also the parts of complex instances, which are AnyRecords too.
std::map<std::string, int> CountByKeyword(steprt::Model& model) {
  std::map<std::string, int> counts;
  for (AnyRecord& record : model.All<AnyRecord>()) ++counts[record.Keyword.Get()];
  return counts;
}

void HideNames(steprt::Model& model) {
  for (AnyRecord& record : model.All<AnyRecord>()) {
    if (record.Keyword.Get() == std::string("PERSON")) (*record.Values.begin()).SetText("somebody");
  }
}

// A complex instance has the name that its parts tell.
std::uint64_t NameOf(STEPheader* object, void* /*context*/) {
  auto* complex = dynamic_cast<STEPcomplex*>(object);
  const auto* record = dynamic_cast<AnyRecord*>(complex ? complex->Parts() : object);
  return record ? record->Name : 0;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string path = std::string(count > 1 ? arguments[1] : ".") + "/foreign.stp";
  std::ofstream(path) << kFile;

  STEPfileHeader header;
  STEPreadOptions options;
  options.header = &header;
  options.unknown = AnyRecord::Row();
  options.diagnose = Show;
  steprt::Model model(&noSchema);
  const int reports = model.ReadStandard(path, &options);  // nothing has the name #7
  std::printf("%s of %s, by %s\n", header.schemas.At(0), static_cast<const char*>(header.timeStamp),
              header.author.At(0));

  HideNames(model);
  for (const auto& [keyword, number] : CountByKeyword(model)) std::printf("%-8s %d\n", keyword.c_str(), number);
  STEPwriteOptions written;
  written.unknown = AnyRecord::Row();
  written.nameOf = NameOf;
  const std::string filtered = path + ".filtered.stp";
  const int records = model.WriteStandard(filtered.c_str(), &header, &written);
  std::printf("%d records in %s\n", records, filtered.c_str());
  return reports == 1 && records == 4 ? 0 : 1;
}
