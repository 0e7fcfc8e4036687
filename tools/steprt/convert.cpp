#include "convert.h"

#include <steprt/file_header.h>
#include <steprt/standard.h>
#include <steprt/standard_write.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console.h"
#include "exchange_files.h"
#include "exit_status.h"
#include "express/cpp/program.h"
#include "express/cpp/selection.h"
#include "late_schema.h"
#include "raw_records.h"
#include "read_reports.h"
#include "schema_files.h"

namespace steprt_tools {
namespace {

struct ConvertRequest {
  std::string in;
  std::string out;
  std::string form;  // standard, native, xml, or empty
  std::vector<std::string> schemas;
  bool json = false;
};

struct Outcome {
  std::size_t begun = 0;  // records in IN, also those that the library did not read
  std::size_t records = 0;
  int written = 0;
  Losses lost;
  bool isUseless = false;  // IN has faults and no record, so OUT was not touched
};

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// After a byte order mark and blanks, XML begins with a tag.
bool IsXml(std::string_view bytes) {
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
  const std::size_t start = bytes.find_first_not_of(" \t\r\n");
  return start != std::string_view::npos && bytes[start] == '<';
}

// A name in FILE_SCHEMA without its object identifier.
std::string SchemaName(const STEPfileHeader& header) {
  const std::string name = header.schemas.At(0);
  return name.substr(0, name.find_first_of(" \t{"));
}

// The library adds .stp to a name without a dot after its last backslash. OUT is the name of the file as it is.
std::string WithDot(std::string path) {
  const std::size_t start = path.rfind('\\') + 1;  // 0 if there is none
  if (path.find('.', start) == std::string::npos) path.insert(std::max(start, path.rfind('/') + 1), "./");
  return path;
}

// The records that begin in IN, as the strict grammar has them. The library may take some of them for a text, where
// another one lacks its apostrophe.
std::size_t RecordsIn(const exchange::Input& input) {
  exchange::Reports none(0);
  return IsXml(input.Bytes()) ? 0 : TakeSurvey(input, {}, none).totals.records;
}

// How often a write has met a real that is not finite. A write has no diagnose function.
std::size_t infiniteReals = 0;

void CountWriteReport(const char* text) {
  if (EndsWith(text, "]Real is not finite")) ++infiniteReals;
}

// One conversion: a model with the records, and what reads and writes them.
class Conversion {
 public:
  Conversion(const ConvertRequest& request, const exchange::Input& input, ReadReports& reports)
      : request_(request), input_(input), reports_(reports) {}

  // Any schema: the records are tokens.
  Outcome Raw() {
    RawRecords records;
    steprt::Model model(records.ReadDescriptor());
    STEPreadOptions options;
    options.unknown = RawRecords::Row();
    reports_.Ignore("integer-out-of-range");  // a token has it whole
    Read(model, options);
    Outcome outcome = Survey(model);
    if (outcome.isUseless) return outcome;
    model.schema = records.WriteDescriptor(model, SchemaName(header_), request_.form == "native");
    outcome.written = Write(model, [](STEPheader* record, void*) {
      const auto* part = static_cast<RawRecord*>(FirstPart(record));
      return part->Name();
    });
    if (request_.form == "native") outcome.lost = records.Lost();
    CountUnwritten(outcome);
    return outcome;
  }

  // A schema that is known: the records are those that its compiled classes read and write.
  Outcome Late(const express::cpp::Program& program) {
    LateSchema schema(program);
    steprt::Model model(schema.Descriptor());
    STEPreadOptions options;
    options.check = IsXml(input_.Bytes());  // a document of another schema would be passed over without a report
    Read(model, options);
    Outcome outcome = Survey(model);
    if (outcome.isUseless) return outcome;
    if (request_.form == "native") CountLosses(model, outcome.lost);
    outcome.written = Write(model, [](STEPheader* record, void*) {
      const auto* part = static_cast<LateRecord*>(FirstPart(record));
      return part->Name();
    });
    CountUnwritten(outcome);
    return outcome;
  }

 private:
  // A complex instance has the name that its parts have.
  static STEPheader* FirstPart(STEPheader* record) {
    return record->type == STEPcomplex::kType ? static_cast<STEPcomplex*>(record)->Parts() : record;
  }

  Outcome Survey(STEPmodel& model) const {
    Outcome outcome;
    outcome.begun = RecordsIn(input_);  // before the write: OUT may be IN
    for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++outcome.records;
    outcome.isUseless = outcome.records == 0 && reports_.Errors() > 0;
    return outcome;
  }

  // After the write: what no write function has counted.
  void CountUnwritten(Outcome& outcome) const {
    if (outcome.written < 0) return;
    Losses& lost = outcome.lost;
    lost.entities = reports_.Count("unknown-entity");
    lost.sections = reports_.Count("section-not-read");
    lost.infinite = infiniteReals;
    lost.others = outcome.records - static_cast<std::size_t>(outcome.written) - lost.complex;
    const std::size_t told = outcome.records + lost.entities;
    lost.others += std::max(outcome.begun, told) - told;
  }

  static void CountLosses(STEPmodel& model, Losses& lost) {
    for (STEPheader* object = model.Inst(); object; object = object->NextHead()) {
      if (object->type == STEPcomplex::kType) {
        ++lost.complex;
      } else {
        static_cast<LateRecord*>(object)->CountLosses(lost);
      }
    }
  }

  void Read(steprt::Model& model, STEPreadOptions options) {
    ProgressBar bar(input_.Name());
    std::pair<ReadReports*, ProgressBar*> both(&reports_, &bar);
    options.header = &header_;
    options.context = &both;
    options.diagnose = [](const STEPdiagnostic* diagnostic, void* context) {
      static_cast<decltype(both)*>(context)->first->Add(*diagnostic);
    };
    options.progress = [](std::uint64_t done, std::uint64_t total, void* context) {
      static_cast<decltype(both)*>(context)->second->Show(done, total);
      return true;
    };
    model.ReadStandardFromMemory(input_.Bytes().data(), input_.Bytes().size(), &options);
    if (!request_.json) reports_.Print(input_);  // before the write: OUT may be IN
  }

  int Write(steprt::Model& model, std::uint64_t (*nameOf)(STEPheader*, void*)) {
    STEPwriteOptions options;
    options.nameOf = nameOf;
    model.schema->errorProc = CountWriteReport;
    const std::string out = WithDot(request_.out);
    errno = 0;
    if (request_.form == "native") return model.Write(out);
    if (request_.form == "xml") return model.WriteStandardXml(out, &header_, &options);
    return model.WriteStandard(out, &header_, &options);
  }

  const ConvertRequest& request_;
  const exchange::Input& input_;
  ReadReports& reports_;
  STEPfileHeader header_;
};

struct Loss {
  std::size_t Losses::*count;
  const char* key;   // in JSON
  const char* text;  // for a reader
};

constexpr Loss kLosses[] = {
    {&Losses::digits, "digits", "reals of more than six digits: rounded"},
    {&Losses::texts, "texts", "texts of 256 characters or more: a reader of the form keeps 256"},
    {&Losses::integers, "integers", "integers beyond 32 bits: the nearest that is not"},
    {&Losses::infinite, "infinite", "reals beyond the range of a double: omitted"},
    {&Losses::complex, "complex", "complex instances: left out"},
    {&Losses::entities, "entities", "records or parts of entities that the schema does not have: left out"},
    {&Losses::others, "others", "other records, which steprt check may explain: left out"},
    {&Losses::sections, "sections", "sections of edition 3: left out"},
    {&Losses::references, "references", "references to what is not written: omitted"},
};

void PrintLosses(const Losses& lost) {
  std::puts("The form cannot hold:");
  for (const Loss& loss : kLosses) {
    if (lost.*loss.count > 0) std::printf("%8zu  %s\n", lost.*loss.count, loss.text);
  }
}

Json LossesAsJson(const Losses& lost) {
  Json json;
  for (const Loss& loss : kLosses) json[loss.key] = lost.*loss.count;
  return json;
}

bool HasLosses(const Losses& lost) {
  return std::any_of(std::begin(kLosses), std::end(kLosses), [&](const Loss& loss) { return lost.*loss.count > 0; });
}

int Tell(const ConvertRequest& request, const exchange::Input& input, const ReadReports& reports,
         const Outcome& outcome) {
  if (request.json) {
    Json document{{"in", input.Name()},         {"out", request.out},         {"form", request.form},
                  {"records", outcome.records}, {"written", outcome.written}, {"losses", LossesAsJson(outcome.lost)}};
    document.update(reports.AsJson());
    PrintJson(document);
  } else {
    if (HasLosses(outcome.lost)) PrintLosses(outcome.lost);
    std::printf("records %zu, written %d\n", outcome.records, outcome.written);
  }
  return reports.Errors() > 0 || HasLosses(outcome.lost) ? kFindings : kClean;
}

int Fail(const std::string& text) {
  std::fprintf(stderr, "steprt: error: %s\n", Harmless(text).c_str());
  return kUnusable;
}

// Why the write has failed, if the system has told it.
std::string Reason() { return errno != 0 ? std::string(": ") + std::strerror(errno) : ""; }

int Convert(ConvertRequest request) {
  std::string reason;
  const auto input = exchange::Input::Open(request.in, reason);
  if (!input) return Fail("cannot read '" + request.in + "': " + reason);
  if (request.form.empty()) request.form = EndsWith(request.out, ".xml") ? "xml" : "standard";
  ReadReports reports(input->Bytes());
  Outcome outcome;
  if (request.form == "xml" || IsXml(input->Bytes())) {
    if (request.schemas.empty()) return Fail("XML has names that only the schema knows: add --schema FILE.exp");
    express::Diagnostics diagnostics;
    const auto model = LoadSchemas(request.schemas, diagnostics);
    if (PrintDiagnostics(diagnostics) != kClean) return kUnusable;
    const auto selection = express::cpp::SelectDeclarations(*model, {}, diagnostics);
    const auto program = express::cpp::BuildProgram(selection, "late", 0, diagnostics);
    if (PrintDiagnostics(diagnostics) != kClean) return kUnusable;
    outcome = Conversion(request, *input, reports).Late(program);
  } else {
    outcome = Conversion(request, *input, reports).Raw();
  }
  if (outcome.isUseless) return Fail("cannot convert '" + request.in + "': it has faults and no record");
  if (outcome.written < 0) return Fail("cannot write '" + request.out + "'" + Reason());
  return Tell(request, *input, reports, outcome);
}

}  // namespace

void AddConvert(CLI::App& app, int& status) {
  auto request = std::make_shared<ConvertRequest>();
  CLI::App* const command = app.add_subcommand("convert", "Write an exchange file in another form");
  command->footer(
      "IN is clear text of ISO 10303-21, editions 1 to 3, the library's own clear text, or XML.\n"
      "The records keep their order, and in the forms standard and xml their names. From standard to\n"
      "standard no value changes. What the form of OUT cannot hold is counted.\n\n"
      "  standard  ISO 10303-21 as it is published\n"
      "  native    what the library's Write writes: six digits, texts of 256 characters\n"
      "  xml       an XML document with all digits; reading and writing it needs --schema\n\n"
      "The last line is \"records N, written M\": N records of IN were read.\n\n"
      "Exit status: 0 done, 1 faults in IN or something lost, 2 wrong usage or a file that cannot be used.\n\n"
      "Example: steprt convert house.ifc house.xml --schema IFC4.exp");
  command->add_option("IN", request->in, "The file to read")->required()->type_name(" ");
  command->add_option("OUT", request->out, "The file to write")->required()->type_name(" ");
  command->add_option("--to", request->form, "standard, native or xml; default: xml for OUT.xml, else standard")
      ->type_name("FORM")
      ->check(CLI::IsMember({"standard", "native", "xml"}).description(""));
  command->add_option("--schema", request->schemas, "A file in EXPRESS; may be repeated")
      ->type_name("FILE.exp")
      ->allow_extra_args(false)
      ->take_all();
  command->add_flag("--json", request->json, "Print one JSON document");
  command->callback([request, &status] { status = Convert(*request); });
}

}  // namespace steprt_tools
