// What a transfer remembers of a schema's lookups: a picture of the path in force, linear or indexed, in two hash
// tables. Every answer is that of lookup.h at the same moment. The picture is drawn at the first question and drawn
// anew when the library has changed the chain or its index since; without memory for it the questions go to lookup.h.
#ifndef STEPRT_SCHEMA_LOOKUP_CACHE_H
#define STEPRT_SCHEMA_LOOKUP_CACHE_H

#include <cstddef>
#include <cstdint>

#include "steprt/schema.h"

namespace steprt {

class LookupCache {
 public:
  explicit LookupCache(APPobject0* schema) : schema_(schema) { Forget(); }
  ~LookupCache() { Forget(); }
  LookupCache(const LookupCache&) = delete;
  LookupCache& operator=(const LookupCache&) = delete;

  APPentity* FindEntityByName(const char* name);
  APPentity* FindEntityByType(int type);
  bool IsSubtype(int expected, int actual);

 private:
  struct Node {
    APPentity* row;
    int type;
    int parent;  // index of the supertype's node, or one of the marks below
  };
  struct NameSlot {
    std::uint32_t hash;
    int bucket;  // of the index, whose lookups by name see one bucket only; 0 on the linear path
    int node;    // kNone: free
  };
  static constexpr int kNone = -1;
  static constexpr int kNotSought = -2;

  // The latest answers, each in the one place that its question hashes to.
  struct NameAnswer {
    APPentity* row;      // found by its name as the row spells it; null: none yet
    std::size_t length;  // of the name
  };
  struct SubtypeAnswer {
    int expected;  // negative: none yet
    int actual;
    bool answer;
  };
  static constexpr int kAnswers = 256;

  bool IsCurrent() const;
  bool FindSubtype(int expected, int actual);
  bool Build();
  void BuildLinear();
  void BuildIndexed();
  void AddName(APPentity* row, int bucket);
  void AddType(APPentity* row);
  int NodeOf(APPentity* row);
  int FindName(const char* name);
  int FindType(int type) const;
  int ParentOf(Node& node);
  NameSlot* NameSlotOf(const char* name, int bucket) const;
  int* TypeSlotOf(int type) const;
  void Forget();

  APPobject0* const schema_;
  APPindexNode** index_ = nullptr;  // the schema's index when the picture was drawn
  unsigned generation_ = 0;         // and the generation
  bool built_ = false;
  Node* nodes_ = nullptr;
  int nodeCount_ = 0;
  NameSlot* names_ = nullptr;  // null: no memory for a picture
  int* types_ = nullptr;       // nodes, kNone for free slots
  std::uint32_t mask_ = 0;     // of both tables, whose sizes are one power of two
  NameAnswer nameAnswers_[kAnswers];
  SubtypeAnswer subtypeAnswers_[kAnswers];
};

}  // namespace steprt

#endif
