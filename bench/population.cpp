#include "population.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <numeric>
#include <random>
#include <string_view>
#include <utility>
#include <vector>

namespace bench {
namespace {

constexpr int kStrideWidth = 4096;
constexpr int kMaxGap = 63;
constexpr int kWallsInList = 400;
constexpr std::uint32_t kSeed = 20260305;

// The numbers of the records, by their place.
std::vector<int> Numbers(Order order, int records) {
  std::vector<int> numbers(static_cast<std::size_t>(records) + 1);
  std::iota(numbers.begin(), numbers.end(), 0);
  std::mt19937 random(kSeed + 1);
  int last = 0;
  for (int& number : numbers) {
    if (order == Order::kDescending) number = records + 1 - number;
    if (order == Order::kStride) number *= kStrideWidth;
    if (order == Order::kSparse) number = last += 1 + static_cast<int>(random() % kMaxGap);
  }
  return numbers;
}

// Writes the records one after the other. A record is known by its place, counted from 1. When there are enough of
// them, what comes is dropped; every reference goes back, so that nothing misses it.
class Writer {
 public:
  Writer(Order order, int records) : limit_(records), numbers_(Numbers(order, records)) {
    text_.reserve(static_cast<std::size_t>(records) * 68);
    starts_.push_back(0);
  }

  bool IsFull() const { return count_ == limit_; }
  const std::string& TextOf() const { return text_; }
  const std::vector<std::size_t>& Starts() const { return starts_; }

  Writer& Begin(std::string_view keyword) {
    Put('#');
    PutInteger(IsFull() ? 0 : numbers_[static_cast<std::size_t>(count_) + 1]);
    Put('=');
    text_ += keyword;
    Put('(');
    isFirst_ = true;
    return *this;
  }

  int End() {
    text_ += ");\n";
    if (IsFull()) {
      text_.resize(starts_.back());
      return count_;
    }
    starts_.push_back(text_.size());
    return ++count_;
  }

  Writer& Open() {
    Separate();
    Put('(');
    isFirst_ = true;
    return *this;
  }
  Writer& Close() {
    Put(')');
    return *this;
  }
  Writer& Ref(int place) {
    Separate();
    Put('#');
    PutInteger(numbers_[static_cast<std::size_t>(place)]);
    return *this;
  }
  Writer& Word(std::string_view word) {
    Separate();
    text_ += word;
    return *this;
  }
  Writer& Integer(int value) {
    Separate();
    PutInteger(value);
    return *this;
  }

  Writer& Real() {
    Separate();
    const int kind = Between(0, 9);
    if (kind < 3) {
      PutInteger(Between(-20000, 20000));
      Put('.');
    } else if (kind < 8) {
      PutDecimals(1 + static_cast<int>(random_() % 3));
    } else {
      PutLongReal();
    }
    return *this;
  }

  Writer& Guid() {
    static constexpr char kLetters[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";
    Separate();
    Put('\'');
    for (int i = 0; i < 22; ++i) Put(kLetters[random_() % 64]);
    Put('\'');
    return *this;
  }

  int Between(int low, int high) { return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1)); }

 private:
  void Put(char c) { text_ += c; }

  void Separate() {
    if (!isFirst_) Put(',');
    isFirst_ = false;
  }

  void PutInteger(int value) {
    char room[16];
    text_.append(room, std::to_chars(room, room + sizeof room, value).ptr);
  }

  void PutDecimals(int digits) {
    char room[32];
    const double value = Between(-9999999, 9999999) / 1000.0;
    const char* const end = std::to_chars(room, room + sizeof room, value, std::chars_format::fixed, digits).ptr;
    std::string_view text(room, static_cast<std::size_t>(end - room));
    if (text.find_first_of("123456789") == text.npos) text.remove_prefix(text[0] == '-' ? 1 : 0);  // no -0
    text_ += text;
  }

  void PutLongReal() {
    char room[32];
    const double value = std::uniform_real_distribution<double>(-10000, 10000)(random_);
    text_.append(room, std::to_chars(room, room + sizeof room, value, std::chars_format::general, 16).ptr);
  }

  const int limit_;
  const std::vector<int> numbers_;
  std::mt19937 random_{kSeed};
  std::string text_;
  std::vector<std::size_t> starts_;  // of the records, and the end
  int count_ = 0;
  bool isFirst_ = true;
};

// What the walls of a storey share.
struct Frame {
  int context, owner, up, placement, storey;
};

int Point(Writer& w) { return w.Begin("IFCCARTESIANPOINT").Open().Real().Real().Real().Close().End(); }

int Polyline(Writer& w, int points, bool isClosed) {
  std::vector<int> places;
  for (int i = 0; i < points; ++i) places.push_back(Point(w));
  if (isClosed) places.push_back(places[0]);
  w.Begin("IFCPOLYLINE").Open();
  for (const int place : places) w.Ref(place);
  return w.Close().End();
}

int Axis2Placement(Writer& w) {
  const int point = Point(w);
  return w.Begin("IFCAXIS2PLACEMENT3D").Ref(point).Word("$").Word("$").End();
}

int Representation(Writer& w, const Frame& frame, std::string_view identifier, std::string_view type, int item) {
  w.Begin("IFCSHAPEREPRESENTATION").Ref(frame.context).Word(identifier).Word(type);
  return w.Open().Ref(item).Close().End();
}

int Solid(Writer& w, const Frame& frame) {
  const int curve = Polyline(w, w.Between(6, 8), true);
  const int profile = w.Begin("IFCARBITRARYCLOSEDPROFILEDEF").Word(".AREA.").Word("$").Ref(curve).End();
  const int position = Axis2Placement(w);
  return w.Begin("IFCEXTRUDEDAREASOLID").Ref(profile).Ref(position).Ref(frame.up).Real().End();
}

int Shape(Writer& w, const Frame& frame) {
  const int axis = Representation(w, frame, "'Axis'", "'Curve2D'", Polyline(w, 2, false));
  const int body = Representation(w, frame, "'Body'", "'SweptSolid'", Solid(w, frame));
  return w.Begin("IFCPRODUCTDEFINITIONSHAPE").Word("$").Word("$").Open().Ref(axis).Ref(body).Close().End();
}

int Placement(Writer& w, int parent) {
  const int relative = Axis2Placement(w);
  w.Begin("IFCLOCALPLACEMENT");
  if (parent != 0) w.Ref(parent);
  if (parent == 0) w.Word("$");
  return w.Ref(relative).End();
}

int Wall(Writer& w, const Frame& frame) {
  const int placement = Placement(w, frame.placement);
  const int shape = Shape(w, frame);
  const std::string tag = std::to_string(w.Between(1000000, 9999999));
  w.Begin("IFCWALLSTANDARDCASE")
      .Guid()
      .Ref(frame.owner)
      .Word("'Basic Wall:Interior - Partition (92mm Stud):" + tag + "'");
  w.Word("$").Word("'Basic Wall:Interior - Partition (92mm Stud):91773'");
  return w.Ref(placement).Ref(shape).Word("'" + tag + "'").End();
}

Frame MakeFrame(Writer& w) {
  Frame frame = {};
  frame.context = w.Begin("IFCGEOMETRICREPRESENTATIONCONTEXT").Word("'Model'").Integer(3).Word("1.E-005").End();
  frame.owner = w.Begin("IFCOWNERHISTORY").Word(".ADDED.").Integer(1217620436).End();
  frame.up = w.Begin("IFCDIRECTION").Open().Word("0.").Word("0.").Word("1.").Close().End();
  frame.placement = Placement(w, 0);
  w.Begin("IFCBUILDINGSTOREY").Guid().Ref(frame.owner).Word("'Level 1'").Ref(frame.placement);
  frame.storey = w.Word(".ELEMENT.").Word("0.").End();
  return frame;
}

void Contain(Writer& w, const Frame& frame, const std::vector<int>& walls) {
  w.Begin("IFCRELCONTAINEDINSPATIALSTRUCTURE").Guid().Ref(frame.owner).Open();
  for (const int wall : walls) w.Ref(wall);
  w.Close().Ref(frame.storey).End();
}

void Fill(Writer& w) {
  const Frame frame = MakeFrame(w);
  std::vector<int> walls;
  while (!w.IsFull()) {
    walls.push_back(Wall(w, frame));
    if (walls.size() < kWallsInList) continue;
    Contain(w, frame, walls);
    walls.clear();
  }
}

constexpr std::string_view kHead =
    "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
    "FILE_NAME('walls','2026-03-05T09:07:00',(''),(''),'','','');\nFILE_SCHEMA(('IFC2X3'));\nENDSEC;\nDATA;\n";
constexpr std::string_view kTail = "ENDSEC;\nEND-ISO-10303-21;\n";

std::vector<std::size_t> RecordOrder(Order order, int records) {
  std::vector<std::size_t> places(static_cast<std::size_t>(records));
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::mt19937 random(kSeed + 2);
  for (std::size_t i = places.size(); order == Order::kShuffled && i > 1; --i)
    std::swap(places[i - 1], places[random() % i]);
  return places;
}

[[noreturn]] void Die(const char* what, const std::string& path) {
  std::fprintf(stderr, "%s: %s\n", path.c_str(), what);
  std::exit(1);
}

Population MakePopulation(Order order, int records) {
  Writer writer(order, records);
  Fill(writer);
  std::string text(kHead);
  text.reserve(writer.TextOf().size() + kHead.size() + kTail.size());
  for (const std::size_t place : RecordOrder(order, records)) {
    const std::size_t start = writer.Starts()[place];
    text.append(writer.TextOf(), start, writer.Starts()[place + 1] - start);
  }
  text += kTail;
  const std::string path = DataFile(std::string(OrderName(order)) + "_" + std::to_string(records) + ".stp");
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) Die("cannot be made", path);
  const bool isWhole = std::fwrite(text.data(), 1, text.size(), file) == text.size();
  if (std::fclose(file) != 0 || !isWhole) Die("cannot be written", path);
  return {order, records, path, text.size()};
}

using Files = std::map<std::pair<Order, int>, Population>;

Files& MadeFiles() {
  static Files files;
  return files;
}

std::string& DataFolder() {
  static std::string folder = ".";
  return folder;
}

}  // namespace

const Population& PopulationFile(Order order, int records) {
  const auto key = std::make_pair(order, records);
  auto found = MadeFiles().find(key);
  if (found == MadeFiles().end()) found = MadeFiles().emplace(key, MakePopulation(order, records)).first;
  return found->second;
}

const char* OrderName(Order order) {
  static constexpr const char* kNames[] = {"ascending", "shuffled", "descending", "sparse", "stride4096"};
  return kNames[static_cast<int>(order)];
}

void SetDataFolder(const std::string& folder) { DataFolder() = folder; }

std::string DataFile(const std::string& name) { return DataFolder() + "/" + name; }

void RemovePopulationFiles() {
  for (const auto& [key, population] : MadeFiles()) std::remove(population.path.c_str());
  MadeFiles().clear();
}

}  // namespace bench
