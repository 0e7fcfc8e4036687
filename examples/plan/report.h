// The error procedure of the schemas: it counts the reports of a transfer by their message.
#ifndef PLAN_REPORT_H
#define PLAN_REPORT_H

#include <map>
#include <string>

namespace plan {

class ReportLog {
 public:
  void Add(const char* text);
  void Clear() { *this = ReportLog(); }
  int Total() const { return total; }

  // The message of the first report; empty if there is none.
  const std::string& First() const { return first; }

  // One line for each message, the most frequent first, at most `limit` of them.
  void Print(int limit) const;

 private:
  struct Kind {
    int count = 0;
    std::string line;  // of the first one
  };
  std::map<std::string, Kind> kinds;
  std::string first;
  int total = 0;
};

// The log of the running transfer. The error procedure is a plain function, so its log is one of the process.
ReportLog& Reports();

// The error procedure itself.
void TakeReport(const char* text);

}  // namespace plan

#endif
