// The reports of a read by the library, in the form of the command.
#ifndef STEPRT_TOOLS_READ_REPORTS_H
#define STEPRT_TOOLS_READ_REPORTS_H

#include <steprt/standard.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "exchange_files.h"

namespace steprt_tools {

class ReadReports {
 public:
  // `bytes`: what is read. They must not change until the read is over.
  explicit ReadReports(std::string_view bytes) : bytes_(bytes) {}

  // A report with this code does not count.
  void Ignore(std::string code) { ignored_ = std::move(code); }
  void Add(const STEPdiagnostic& diagnostic);

  std::size_t Errors() const { return errors_; }
  std::size_t Count(const std::string& code) const;
  void Print(const exchange::Input& input);  // in the order of the file: references are read last
  Json AsJson() const;

 private:
  static constexpr std::size_t kMostOfOne = 5;  // reports of one code

  bool IsMissingField(const STEPdiagnostic& diagnostic) const;

  std::string_view bytes_;
  std::string ignored_;
  std::size_t errors_ = 0;
  std::vector<Finding> kept_;
  std::map<std::string, std::size_t> counts_;  // by code
};

}  // namespace steprt_tools

#endif
