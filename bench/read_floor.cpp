#include "read_floor.h"

#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "building.h"

namespace bench {
namespace {

// The objects by number, and the references to numbers that have none yet.
class Numbers {
 public:
  void Store(int number, STEPheader* object) {
    const auto place = static_cast<std::size_t>(number);
    if (place >= objects_.size()) objects_.resize(place + place / 2 + 1024);
    objects_[place] = object;
  }

  void Settle(int number, STEPheader** slot) {
    const auto place = static_cast<std::size_t>(number);
    STEPheader* object = place < objects_.size() ? objects_[place] : nullptr;
    if (object) {
      *slot = object;
    } else {
      pending_.push_back({place, slot});
    }
  }

  void SettlePending() {
    for (const Pending& pending : pending_) *pending.slot = objects_[pending.place];
  }

 private:
  struct Pending {
    std::size_t place;
    STEPheader** slot;
  };
  std::vector<STEPheader*> objects_;
  std::vector<Pending> pending_;
};

// Takes the attributes of one record, each with the bracket or the comma in front of it.
class Scanner {
 public:
  Scanner(const char* at, const char* limit, Numbers* numbers) : p_(at), limit_(limit), numbers_(numbers) {}

  const char* At() const { return p_; }

  int Number() {
    int number = 0;
    p_ = std::from_chars(p_ + 1, limit_, number).ptr;
    return number;
  }

  std::string_view Keyword() {
    const char* start = ++p_;
    while (*p_ != '(') ++p_;
    return {start, static_cast<std::size_t>(p_ - start)};
  }

  void PassEnd() { p_ += 3; }  // `);` and the line feed

  void String(const char*, Text& text) {
    if (IsNull()) return;
    const char* start = p_ + 2;
    p_ = static_cast<const char*>(std::memchr(start, '\'', static_cast<std::size_t>(limit_ - start)));
    text.chars = CopyText(start, static_cast<std::size_t>(p_ - start));
    ++p_;
  }
  void Integer(const char*, int& value) { p_ = std::from_chars(p_ + 1, limit_, value).ptr; }
  void Real(const char*, double& value) { p_ = std::from_chars(p_ + 1, limit_, value).ptr; }
  void Enumerator(const char*, int& value, const char** names, int) {
    const char* start = ++p_;
    while (*p_ != ',') ++p_;
    const std::string_view word(start, static_cast<std::size_t>(p_ - start));
    while (word != names[value]) ++value;
  }
  void Reference(const char*, STEPheader*& slot, int) {
    if (IsNull()) return;
    ++p_;
    numbers_->Settle(Number(), &slot);
  }
  void Reals(const char*, List& list) {
    ForEachItem(list, [this](STEPlist* node) { Real("", node->value.real); });
  }
  void References(const char*, List& list, int expected) {
    ForEachItem(list, [=, this](STEPlist* node) { Reference("", node->value.object, expected); });
  }

 private:
  bool IsNull() {
    if (p_[1] != '$') return false;
    p_ += 2;
    return true;
  }

  template <typename ReadItem>
  void ForEachItem(List& list, ReadItem readItem) {
    ++p_;
    list.aggr = new STEPaggr;
    STEPlist** tail = &list.aggr->head;
    do {
      auto* node = new STEPlist;
      readItem(node);
      *tail = node;
      tail = &node->next;
    } while (*p_ != ')');
    ++p_;
  }

  const char* p_;
  const char* const limit_;
  Numbers* const numbers_;
};

template <typename Class>
STEPheader* Make(Scanner& scanner) {
  auto* object = new Class;
  object->Attributes(scanner);
  return object;
}

// Tells the keywords apart by length and fourth letter.
constexpr unsigned KeyOf(std::string_view keyword) {
  return static_cast<unsigned>(keyword.size()) * 256 + static_cast<unsigned char>(keyword[3]);
}

STEPheader* MakeByKeyword(Scanner& scanner) {
  switch (KeyOf(scanner.Keyword())) {
    case KeyOf(CartesianPoint::kKeyword):
      return Make<CartesianPoint>(scanner);
    case KeyOf(Direction::kKeyword):
      return Make<Direction>(scanner);
    case KeyOf(Polyline::kKeyword):
      return Make<Polyline>(scanner);
    case KeyOf(Axis2Placement3D::kKeyword):
      return Make<Axis2Placement3D>(scanner);
    case KeyOf(LocalPlacement::kKeyword):
      return Make<LocalPlacement>(scanner);
    case KeyOf(ArbitraryClosedProfile::kKeyword):
      return Make<ArbitraryClosedProfile>(scanner);
    case KeyOf(ExtrudedAreaSolid::kKeyword):
      return Make<ExtrudedAreaSolid>(scanner);
    case KeyOf(ShapeRepresentation::kKeyword):
      return Make<ShapeRepresentation>(scanner);
    case KeyOf(ProductDefinitionShape::kKeyword):
      return Make<ProductDefinitionShape>(scanner);
    case KeyOf(WallStandardCase::kKeyword):
      return Make<WallStandardCase>(scanner);
    case KeyOf(RelContained::kKeyword):
      return Make<RelContained>(scanner);
    case KeyOf(BuildingStorey::kKeyword):
      return Make<BuildingStorey>(scanner);
    case KeyOf(OwnerHistory::kKeyword):
      return Make<OwnerHistory>(scanner);
    default:
      return Make<GeometricContext>(scanner);
  }
}

constexpr std::size_t kBlock = 1 << 18;  // much more than the longest record

// Returns whole lines, one block at a time; what is left of the last line goes to the front of the next block.
class LineBlocks {
 public:
  explicit LineBlocks(const std::string& path)
      : handle_(::open(path.c_str(), O_RDONLY)), block_(std::make_unique<char[]>(kBlock)) {}
  ~LineBlocks() { ::close(handle_); }
  LineBlocks(const LineBlocks&) = delete;
  LineBlocks& operator=(const LineBlocks&) = delete;

  std::string_view Next() {
    const std::size_t rest = used_ - lines_;
    std::memmove(block_.get(), block_.get() + lines_, rest);
    const ssize_t count = ::read(handle_, block_.get() + rest, kBlock - rest);
    used_ = rest + static_cast<std::size_t>(count > 0 ? count : 0);
    lines_ = used_;
    while (lines_ > 0 && block_[lines_ - 1] != '\n') --lines_;
    return {block_.get(), lines_};
  }

 private:
  const int handle_;
  const std::unique_ptr<char[]> block_;
  std::size_t used_ = 0;
  std::size_t lines_ = 0;  // bytes of whole lines
};

}  // namespace

STEPheader* ReadFloor(const std::string& path) {
  Numbers numbers;
  LineBlocks blocks(path);
  STEPheader* first = nullptr;
  STEPheader** tail = &first;
  std::string_view lines = blocks.Next();
  lines.remove_prefix(lines.find("DATA;\n") + 6);
  for (; !lines.empty(); lines = blocks.Next()) {
    Scanner scanner(lines.data(), lines.data() + lines.size(), &numbers);
    while (scanner.At() != lines.data() + lines.size() && *scanner.At() == '#') {
      const int number = scanner.Number();
      STEPheader* object = MakeByKeyword(scanner);
      scanner.PassEnd();
      numbers.Store(number, object);
      *tail = object;
      tail = &object->next;
    }
  }
  numbers.SettlePending();
  return first;
}

}  // namespace bench
