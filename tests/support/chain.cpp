#include "support/chain.h"

#include <cstddef>
#include <new>

namespace steprt_test {
namespace {

// A record as a client's own would be: the descriptor's fields, and after them as many rows as it takes.
APPobject0* MakeDescriptor(const Schema& schema) {
  const std::size_t size = sizeof(APPobject0) + schema.rows.size() * sizeof(APPentity);
  auto* descriptor = new (::operator new(size)) APPobject0{nullptr, schema.name.c_str(), nullptr, nullptr, nullptr, {}};
  APPentity* row = descriptor->entities;
  for (const Row& each : schema.rows) {
    *row++ = {each.name.c_str(), nullptr, nullptr, each.type, each.super.empty() ? nullptr : each.super.c_str()};
  }
  *row = {};
  return descriptor;
}

}  // namespace

Chain::Chain(std::vector<Schema> schemas) : schemas_(std::move(schemas)) {
  for (const Schema& each : schemas_) {
    descriptors_.push_back(MakeDescriptor(each));
    if (descriptors_.size() > 1) descriptors_[descriptors_.size() - 2]->next = descriptors_.back();
  }
}

Chain::~Chain() {
  for (APPobject0* each : descriptors_) ::operator delete(each);
}

}  // namespace steprt_test
