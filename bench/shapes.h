// Shapes of a file, honest and hostile: what each costs to read must grow with its size and no faster. They are made
// from a seed, for the benchmarks and for the test that counts instructions alike.
#ifndef STEPRT_BENCH_SHAPES_H
#define STEPRT_BENCH_SHAPES_H

#include <span>
#include <string>

namespace bench {

enum class Form { kClearText, kStandard, kXml };

// A number that goes with that of a file's items.
struct Amount {
  long forEach;
  long more;

  constexpr long Of(long items) const { return forEach * items + more; }
};

inline constexpr Amount kNone = {0, 0};
inline constexpr Amount kOne = {0, 1};
inline constexpr Amount kTwo = {0, 2};
inline constexpr Amount kEach = {1, 0};

struct Shape {
  const char* name;
  Form form;
  int measured;  // items of the smallest file that is timed; that one is doubled three times
  int counted;   // items of the file whose read is counted in instructions, and doubled once
  Amount instances;
  Amount reports;
  void (*put)(std::string& file, int items);  // what lies between the head and the tail
};

// A shape of that form.
template <Form form>
constexpr Shape RowOf(const char* name, int measured, int counted, Amount instances, Amount reports,
                      void (*put)(std::string&, int)) {
  return {name, form, measured, counted, instances, reports, put};
}

std::span<const Shape> ClearTextShapes();
std::span<const Shape> StandardShapes();
std::span<const Shape> XmlShapes();

// False where the file cannot be written.
bool WriteShape(const Shape& shape, int items, const std::string& path);

}  // namespace bench

#endif
