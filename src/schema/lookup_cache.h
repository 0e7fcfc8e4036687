// What one transfer remembers of the lookups in its schema.
//
// A lookup walks the chain of descriptors, or a bucket of the schema's index. A transfer asks for the same few names
// and types again and again, so it keeps a *snapshot* of all rows in two hash tables. Every answer is the one that
// lookup.h returns at the same moment: the snapshot is built at the first lookup, and again when the library has
// changed the chain or its index since. When memory for it runs out, lookup.h answers.
#ifndef STEPRT_SCHEMA_LOOKUP_CACHE_H
#define STEPRT_SCHEMA_LOOKUP_CACHE_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "steprt/schema.h"
#include "support/hash.h"
#include "support/hash_table.h"

namespace steprt {

class LookupCache {
 public:
  explicit LookupCache(APPobject0* schema) : schema_(schema) { Forget(); }
  ~LookupCache() { Forget(); }
  LookupCache(const LookupCache&) = delete;
  LookupCache& operator=(const LookupCache&) = delete;

  APPentity* FindEntityByName(std::string_view name);  // a null character must follow the name
  APPentity* FindEntityByType(int type);
  bool IsSubtype(int expected, int actual) {
    return expected == actual || expected < 0 || IsTrueSubtype(expected, actual);
  }

 private:
  // A row of the snapshot.
  struct Node {
    APPentity* row;
    int type;
    int parent;          // index of the supertype's node, or one of the marks below
    std::size_t length;  // of the row's name
  };
  static constexpr int kNone = -1;
  static constexpr int kNotSought = -2;

  // Slots hold the index of a node, counted from 1, so that a zeroed one is free.
  struct NameSlot {
    std::uint32_t hash;
    int bucket;  // of the index: its lookups by name search one bucket only. 0 if there is no index
    int place;
    bool IsFree() const { return place == 0; }
  };
  struct TypeSlot {
    int type;
    int place;
    bool IsFree() const { return place == 0; }
  };

  // The latest answers, each at the one place that its question shares with others. Where questions collide, an answer
  // is only found anew, so a place is chosen cheaply and without the seed.
  struct SubtypeAnswer {
    int expected;  // negative: none yet
    int actual;
    bool answer;
  };
  static constexpr std::size_t kAnswers = 256;
  static std::size_t AnswerPlace(std::string_view name);
  static std::size_t AnswerPlace(int expected, int actual);

  static bool IsSpelled(const Node& node, std::string_view name);
  bool IsCurrent() const;
  bool IsTrueSubtype(int expected, int actual);
  bool FindSubtype(int expected, int actual);
  bool Build();
  bool Reserve(std::size_t rows);
  void BuildLinear();
  void BuildIndexed();
  void AddName(APPentity* row, int bucket);
  void AddType(APPentity* row);
  int PlaceOf(APPentity* row);
  int FindName(const char* name) const;
  int FindType(int type) const;
  int ParentOf(Node& node);
  NameSlot* NameSlotOf(const char* name, int bucket) const;
  TypeSlot* TypeSlotOf(int type) const;
  void Forget();

  APPobject0* const schema_;
  const HashSeed seed_ = ProcessSeed();
  APPindexNode** index_ = nullptr;  // the schema's index when the snapshot was built
  unsigned generation_ = 0;         // and the generation, see generation.h
  bool wasTried_ = false;           // to build it
  Node* nodes_ = nullptr;           // null: there is no snapshot
  int nodeCount_ = 0;
  HashTable<NameSlot, 4> names_;
  HashTable<TypeSlot, 4> types_;
  int nameAnswers_[kAnswers];  // nodes whose rows spell the name as the lookup did
  int typeAnswers_[kAnswers];  // nodes
  SubtypeAnswer subtypeAnswers_[kAnswers];
};

}  // namespace steprt

#endif
