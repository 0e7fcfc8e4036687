// The schema of the tests once more, as a table that the reference reader goes by.
#ifndef STEPRT_TESTS_WHOLE_REFERENCE_ROWS_H
#define STEPRT_TESTS_WHOLE_REFERENCE_ROWS_H

#include <string>
#include <vector>

#include "support/proj_schema.h"

namespace steprt_test {

inline constexpr int kNoType = -1;

struct ReferenceRow {
  std::string name;
  int type;
  int super;  // or kNoType
  bool isReadable;
  Shape shape;
};
using ReferenceRows = std::vector<ReferenceRow>;

// What one read is about.
struct ReadCase {
  std::string bytes;
  bool check = false;
  std::string kinds;               // of PROBE's attributes
  int expected = kNoType;          // of its references
  bool probeMakesNothing = false;  // its read function takes a text and gives null
  int atMost = 1 << 20;            // bytes that a call of the system gives
};

inline ReferenceRows RowsOf(const ReadCase& read) {
  Shape probe;
  for (const char kind : read.kinds) probe.push_back({"", kind, read.expected});
  return {{"WALL",
           kWall,
           kProduct,
           true,
           {{"", 't'}, {"", 'r'}, {"", 'f', kPerson}, {"", 'A', kDoor}, {"", 'p'}, {"", 'b'}}},
          {"DOOR", kDoor, kWall, true, {{"", 'f', kWall}}},
          {"SAMPLE",
           kSample,
           kNoType,
           true,
           {{"", 't'},
            {"", 'i'},
            {"", 'r'},
            {"", 'b'},
            {"", 'l'},
            {"", 'e'},
            {"", 's'},
            {"", 'f', kProduct},
            {"", 'a'},
            {"", 'p'},
            {"", 'E'},
            {"", 'T'}}},
          {"NOTE", kNote, kNoType, true, {{"", 't'}}},
          {"PROBE", kProbe, kNoType, true, probe},
          {"PRODUCT", kProduct, kNoType, false, {}},
          {"POINT", kPoint, kNoType, true, {{"", 'r'}, {"", 'r'}, {"", 'r'}}},
          {"PERSON", kPerson, kNoType, true, {{"", 'i'}}}};
}

}  // namespace steprt_test

#endif
