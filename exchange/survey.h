// What a file holds: `steprt stat`, and the first pass of `steprt check`.
#ifndef STEPRT_EXCHANGE_SURVEY_H
#define STEPRT_EXCHANGE_SURVEY_H

#include <cstddef>
#include <functional>

#include "hash.h"
#include "header.h"
#include "input.h"
#include "names.h"
#include "record.h"
#include "reports.h"

namespace exchange {

struct Totals {
  std::size_t bytes = 0;
  std::size_t records = 0;     // begun, in all DATA sections
  std::size_t read = 0;        // those without a fault of the grammar
  std::size_t complex = 0;     // of those: complex instances
  std::size_t references = 0;  // in those, and in the sections of edition 3
  std::size_t dangling = 0;    // of the references: to a name that no record has
  std::size_t doubled = 0;     // records whose name an earlier record has
};

struct KeywordCount {
  std::size_t records = 0;  // simple instances
  std::size_t parts = 0;    // of complex instances
};

struct SurveyOptions {
  bool keywords = false;  // count them
  // Called about once for each MiB; `done` grows from 0 to `total` once for each pass.
  std::function<void(std::size_t done, std::size_t total)> progress;
};

struct Survey {
  Header header;
  Totals totals;
  TextMap<KeywordCount> keywords;
};

// Reads the file once, and once more if a reference dangles. Reports go to `reports`, sorted.
Survey TakeSurvey(const Input& input, const SurveyOptions& options, Reports& reports);

}  // namespace exchange

#endif
