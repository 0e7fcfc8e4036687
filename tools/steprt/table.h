// A descriptor whose rows are known only when the program runs.
#ifndef STEPRT_TOOLS_TABLE_H
#define STEPRT_TOOLS_TABLE_H

#include <steprt/schema.h>

#include <memory>
#include <string>
#include <vector>

namespace steprt_tools {

class Table {
 public:
  // The texts of the rows are not copied.
  Table(std::string name, const std::vector<APPentity>& rows);
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  APPobject0* Descriptor() const { return descriptor_; }

 private:
  std::string name_;
  std::unique_ptr<char[]> memory_;
  APPobject0* descriptor_;
};

}  // namespace steprt_tools

#endif
