#include "survey.h"

#include <utility>

#include "passes.h"

namespace exchange {

Survey TakeSurvey(const Input& input, const SurveyOptions& options, Reports& reports) {
  FirstPass first(input, options, reports);
  first.Run();
  if (first.AllNames().AnyDangling()) {
    SecondPass(input, options, first.AllNames(), first.Counts(), reports).Run();
  }
  reports.Sort();
  return {first.FileHeader(), first.Counts(), std::move(first.Keywords())};
}

}  // namespace exchange
