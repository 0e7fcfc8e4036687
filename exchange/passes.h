// The two passes over a file. The first one collects names and checks the grammar; the second one looks at each
// reference when all names are known. So no list of references is kept.
#ifndef STEPRT_EXCHANGE_PASSES_H
#define STEPRT_EXCHANGE_PASSES_H

#include <cstddef>

#include "survey.h"

namespace exchange {

class FirstPass : public Sink {
 public:
  FirstPass(const Input& input, const SurveyOptions& options, Reports& reports)
      : input_(input), options_(options), reports_(reports), headerReader_(reports) {}

  void Run();

  const Names& AllNames() const { return names_; }
  const Header& FileHeader() const { return headerReader_.Get(); }
  const Totals& Counts() const { return totals_; }
  Totals& Counts() { return totals_; }
  TextMap<KeywordCount>& Keywords() { return keywords_; }

  void OnHeader(const Record& record) override;
  void OnRecord(const Record& record) override;
  void OnOther(const Record& record) override;
  void OnProgress(std::size_t offset) override;

 protected:
  std::size_t SchemaOffset() const { return headerReader_.SchemaOffset(); }
  // The number that the second pass finds for the record's name.
  virtual std::uint16_t TypeOf(const Record&) { return kUnknownType; }
  // The header is complete.
  virtual void OnData() {}

 private:
  void CountKeywords(const Record& record);
  void CountReferences(const Record& record);

  const Input& input_;
  const SurveyOptions& options_;
  Reports& reports_;
  HeaderReader headerReader_;
  Names names_;
  Totals totals_;
  TextMap<KeywordCount> keywords_;
  bool headerDone_ = false;
};

// Reports dangling references. A derived class may look at each sound record.
class SecondPass : public Sink {
 public:
  SecondPass(const Input& input, const SurveyOptions& options, const Names& names, Totals& totals, Reports& reports)
      : input_(input),
        options_(options),
        names_(names),
        totals_(totals),
        reports_(reports),
        dangling_(names.AnyDangling()) {}

  void Run();

  void OnHeader(const Record&) override {}
  void OnRecord(const Record& record) override;
  void OnOther(const Record& record) override { FindDangling(record); }
  void OnProgress(std::size_t offset) override;

 protected:
  virtual void Look(const Record&) {}
  Reports& AllReports() { return reports_; }
  const Names& AllNames() const { return names_; }

 private:
  void FindDangling(const Record& record);

  const Input& input_;
  const SurveyOptions& options_;
  const Names& names_;
  Totals& totals_;
  Reports& reports_;
  bool dangling_;  // there are such references
  Reports muted_;  // the grammar is reported by the first pass
};

}  // namespace exchange

#endif
