#include "table.h"

#include <new>
#include <utility>

namespace steprt_tools {

Table::Table(std::string name, const std::vector<APPentity>& rows)
    : name_(std::move(name)), memory_(new char[sizeof(APPobject0) + rows.size() * sizeof(APPentity)]) {
  descriptor_ = new (memory_.get()) APPobject0{nullptr, name_.c_str(), [](const char*) {}, nullptr, nullptr, {}};
  APPentity* place = descriptor_->entities;
  for (const APPentity& row : rows) new (place++) APPentity(row);
  new (place) APPentity{};  // ends the table
}

}  // namespace steprt_tools
