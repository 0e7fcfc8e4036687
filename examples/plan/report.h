// The error procedure of the schema: it counts the reports of a transfer by their message and shows the first few.
#ifndef PLAN_REPORT_H
#define PLAN_REPORT_H

#include <map>
#include <string>

namespace plan {

class ReportLog {
 public:
  void Add(const char* text);
  void Clear();
  int Total() const { return total; }

  // One line for each message, the most frequent first, at most `limit` of them.
  void Print(int limit) const;

 private:
  std::map<std::string, int> counts;
  int total = 0;
};

// The log of the running transfer. The error procedure is a plain function, so its log is one of the process.
ReportLog& Reports();

// The error procedure itself.
void TakeReport(const char* text);

}  // namespace plan

#endif
