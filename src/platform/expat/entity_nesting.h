// How deep the entities of a document type are nested. Expat recurses for each entity inside of an entity, so that a
// chain of many thousands would use up the stack.
//
// References may come before the declaration they refer to, so a declaration can deepen entities that are known
// already. Each record lists the entities that refer to it, and a greater depth goes on to those.
#ifndef STEPRT_PLATFORM_EXPAT_ENTITY_NESTING_H
#define STEPRT_PLATFORM_EXPAT_ENTITY_NESTING_H

#include <string_view>

#include "platform/expat/name_table.h"
#include "support/pool.h"

namespace steprt {

class EntityNesting {
 public:
  static constexpr int kDeepest = 256;  // Expat needs some hundred bytes of the stack for a level

  enum class Result { kFits, kTooDeep, kOutOfMemory };

  // Takes each entity once, with the text that it is replaced by. Both texts must live as long as this object.
  //
  // A cycle is left to Expat, which refuses its use, unless more entities than kDeepest are declared.
  [[nodiscard]] Result Declare(std::string_view name, std::string_view text, bool isParameter);

 private:
  struct Referrer;
  struct Entity {
    std::string_view name;
    int depth;            // 0 until it is declared, then that of the deepest entity in it, and one more
    bool isBeingRaised;   // it is met again only in a cycle
    Referrer* referrers;  // that have it in their text
  };
  struct Referrer {
    Entity* entity;
    Referrer* next;
  };

  bool AddReferences(Entity* entity, std::string_view text, char mark, NameTable<Entity>& table);
  void Raise(Entity* entity, int depth);

  NameTable<Entity> general_;
  NameTable<Entity> parameters_;
  Pool<Referrer, 64> referrers_;
  int declared_ = 0;
  bool isTooDeep_ = false;
  bool isCyclic_ = false;
};

}  // namespace steprt

#endif
