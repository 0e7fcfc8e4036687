// The XML form: reads against Expat alone, writes against the floor.
#include <cstdio>
#include <cstring>

#include "building.h"
#include "fingerprint.h"
#include "pairs.h"
#include "population.h"
#include "read_floor.h"
#include "tasks.h"
#include "xml_floor.h"

namespace bench {
namespace {

constexpr double kWantedRead = 1.4;
constexpr double kWantedWrite = 1.15;
constexpr double kWantedGrowth = 1.1;
constexpr int kGrowthBase = 100'000;

std::size_t BytesOf(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) return 0;
  std::fseek(file, 0, SEEK_END);
  const long bytes = std::ftell(file);
  std::fclose(file);
  return static_cast<std::size_t>(bytes);
}

char* Plain(const std::string& path) { return const_cast<char*>(path.c_str()); }

// A population as an XML document, which goes with it.
class Document {
 public:
  Document(int records, const std::string& name) : path_(DataFile(name)), records_(records) {
    BuildingModel model;
    ReadFloor(PopulationFile(Order::kAscending, records).path);
    model.WriteXml(Plain(path_), "");
    bytes_ = BytesOf(path_);
  }
  ~Document() { std::remove(path_.c_str()); }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  const std::string& Path() const { return path_; }
  Volume Size() const { return {records_, bytes_}; }

  double TimeRead() const {
    BeginTurn();
    BuildingModel model;
    model.Name(path_.c_str());
    return TimeOf([&] { model.ReadXml(nullptr); });
  }
  double TimeParse() const {
    return TimeOf([&] { elements_ = ParseXmlFloor(path_); });
  }
  bool IsSound() const { return TimeParse() > 0 && elements_ > records_; }

 private:
  const std::string path_;
  const int records_;
  std::size_t bytes_ = 0;
  mutable long elements_ = 0;
};

// XML writes an omitted text as `$`, and that is what comes back.
struct DollarToNull {
  void String(const char*, Text& text) {
    if (!text.chars || std::strcmp(text.chars, "$") != 0) return;
    delete[] text.chars;
    text.chars = nullptr;
  }
  void Integer(const char*, int&) {}
  void Real(const char*, double&) {}
  void Enumerator(const char*, int&, const char**, int) {}
  void Reference(const char*, STEPheader*&, int) {}
  void Reals(const char*, List&) {}
  void References(const char*, List&, int) {}
};

std::uint64_t XmlFingerprint(const Document& document) {
  BuildingModel model;
  model.Name(document.Path().c_str());
  if (model.ReadXml(nullptr) != 0) return 0;
  DollarToNull visitor;
  for (STEPheader* object = model.Inst(); object; object = object->next) {
    WithClass(object, [&](auto& entity) { entity.Attributes(visitor); });
  }
  return Fingerprint(model.Inst());
}

// Of the same population gone through clear text, so that its reals have lost the same digits.
std::uint64_t ClearTextFingerprint(int records) {
  const std::string path = DataFile("clear.stp");
  BuildingModel model;
  ReadFloor(PopulationFile(Order::kAscending, records).path);
  model.Write(Plain(path), "");
  model.Delete();
  model.Read(false, Plain(path));
  std::remove(path.c_str());
  return Fingerprint(model.Inst());
}

void ReadAgainstExpat(benchmark::State& state, int records) {
  const Document document(records, "document.xml");
  if (!document.IsSound()) return Fail(state, "the document is not well formed");
  if (XmlFingerprint(document) != ClearTextFingerprint(records)) return Fail(state, "XML gives another population");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return document.TimeRead(); }, [&] { return document.TimeParse(); });
    state.SetIterationTime(pairs.LastSubject());
  }
  Report(state, pairs, document.Size(), kWantedRead);
}

void WriteAgainstFloor(benchmark::State& state, int records) {
  const std::string path = DataFile("written.xml");
  const std::string floorPath = DataFile("written_floor.xml");
  BuildingModel model;
  ReadFloor(PopulationFile(Order::kAscending, records).path);
  if (model.WriteXml(Plain(path), "") != records) return Fail(state, "a record was not written");
  const std::size_t bytes = BytesOf(path);
  XmlWriteFloor(floorPath, model.Inst());
  if (FileFingerprint(path) != FileFingerprint(floorPath)) return Fail(state, "the floor writes other bytes");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return TimeOf([&] { model.WriteXml(Plain(path), ""); }); },
                  [&] { return TimeOf([&] { XmlWriteFloor(floorPath, model.Inst()); }); });
    state.SetIterationTime(pairs.LastSubject());
  }
  std::remove(path.c_str());
  std::remove(floorPath.c_str());
  Report(state, pairs, {records, bytes}, kWantedWrite);
}

// How much dearer a record is in a large population. Each of the two returns the seconds of one transfer.
template <typename TimeLarge, typename TimeBase>
void Growth(benchmark::State& state, int records, TimeLarge timeLarge, TimeBase timeBase) {
  const int repeats = records / kGrowthBase;
  const auto timeBases = [&] {
    double seconds = 0;
    for (int i = 0; i < repeats; ++i) seconds += timeBase();
    return seconds / repeats / kGrowthBase;
  };
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return timeLarge() / records; }, timeBases);
    state.SetIterationTime(pairs.LastSubject() * records);
  }
  state.counters["ns_per_record"] = pairs.SubjectSeconds() * 1e9;
  state.counters["base_ns_per_record"] = pairs.FloorSeconds() * 1e9;
  state.counters["ratio"] = pairs.Ratio();
  state.counters["wanted"] = kWantedGrowth;
}

void ReadGrowth(benchmark::State& state, int records) {
  const Document base(kGrowthBase, "base.xml");
  const Document large(records, "document.xml");
  Growth(
      state, records, [&] { return large.TimeRead(); }, [&] { return base.TimeRead(); });
}

void WriteGrowth(benchmark::State& state, int records) {
  const std::string path = DataFile("written.xml");
  BuildingModel base;
  ReadFloor(PopulationFile(Order::kAscending, kGrowthBase).path);
  BuildingModel large;
  ReadFloor(PopulationFile(Order::kAscending, records).path);
  int written = 0;
  const auto timeWrite = [&](BuildingModel& model) {
    return TimeOf([&] { written = model.WriteXml(Plain(path), ""); });
  };
  if (timeWrite(large) <= 0 || written != records) return Fail(state, "a record was not written");
  Growth(
      state, records, [&] { return timeWrite(large); }, [&] { return timeWrite(base); });
  std::remove(path.c_str());
}

}  // namespace

void RegisterXml(int records) {
  const std::string size = SizeName(records);
  const int turns = TurnsFor(records);
  Register("xml_read/" + size, turns, [=](benchmark::State& state) { ReadAgainstExpat(state, records); });
  Register("xml_write/" + size, turns, [=](benchmark::State& state) { WriteAgainstFloor(state, records); });
  if (records <= kGrowthBase) return;
  Register("xml_read_growth_100k_to/" + size, turns, [=](benchmark::State& state) { ReadGrowth(state, records); });
  Register("xml_write_growth_100k_to/" + size, turns, [=](benchmark::State& state) { WriteGrowth(state, records); });
}

}  // namespace bench
