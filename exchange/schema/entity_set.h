// A set of entities, by their numbers.
#ifndef STEPRT_EXCHANGE_SCHEMA_ENTITY_SET_H
#define STEPRT_EXCHANGE_SCHEMA_ENTITY_SET_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace exchange {

class EntitySet {
 public:
  EntitySet() = default;
  explicit EntitySet(std::size_t entities) : words_((entities + kBits - 1) / kBits) {}

  void Add(std::size_t entity) { words_[entity / kBits] |= Bit(entity); }
  bool Has(std::size_t entity) const { return (words_[entity / kBits] & Bit(entity)) != 0; }
  bool Empty() const {
    return std::all_of(words_.begin(), words_.end(), [](std::uint64_t word) { return word == 0; });
  }
  // Both sets are of the same schema.
  bool Meets(const EntitySet& other) const {
    for (std::size_t i = 0; i < words_.size(); ++i) {
      if ((words_[i] & other.words_[i]) != 0) return true;
    }
    return false;
  }
  void Add(const EntitySet& other) {
    for (std::size_t i = 0; i < words_.size(); ++i) words_[i] |= other.words_[i];
  }

 private:
  static constexpr std::size_t kBits = 64;
  static std::uint64_t Bit(std::size_t entity) { return std::uint64_t{1} << entity % kBits; }

  std::vector<std::uint64_t> words_;
};

}  // namespace exchange

#endif
