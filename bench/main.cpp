// steprt_bench [--full] [--fresh] [--data=FOLDER] [the flags of Google Benchmark]
//
//   --full   populations of 4M records as well; so does a filter that names 4M
//   --fresh  every turn takes its memory from the system anew
//
//   steprt_bench --benchmark_filter=/10k     some seconds: every task, small
//   steprt_bench --benchmark_filter='^read/'
//   steprt_bench --benchmark_filter=^read_standard  ISO 10303-21 as published, against the library's own form
//   steprt_bench --benchmark_filter=^described   classes that describe their attributes, against functions by hand
//   steprt_bench --benchmark_filter='^schema/'   lookups and queries by type, for each size of a schema
//   steprt_bench --benchmark_filter='^doubling/'  files of twice the size, for each shape in shapes.h
#include <string_view>

#include "pairs.h"
#include "population.h"
#include "shapes.h"
#include "tasks.h"
#include "xml_floor.h"

namespace {

constexpr int kSizes[] = {10'000, 100'000, 1'000'000};
constexpr int kFullSize = 4'000'000;
constexpr std::string_view kDataFlag = "--data=";

struct Options {
  bool isFull = false;
  bench::Memory memory = bench::Memory::kKept;
  const char* data = STEPRT_BENCH_DATA;
};

// Takes our own arguments out.
Options TakeOptions(int* argc, char** argv) {
  Options options;
  int kept = 1;
  for (int i = 1; i < *argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--full") {
      options.isFull = true;
    } else if (argument == "--fresh") {
      options.memory = bench::Memory::kFresh;
    } else if (argument.substr(0, kDataFlag.size()) == kDataFlag) {
      options.data = argv[i] + kDataFlag.size();
    } else {
      if (argument.find("filter=") != argument.npos && argument.find("4M") != argument.npos) options.isFull = true;
      argv[kept++] = argv[i];
    }
  }
  *argc = kept;
  argv[kept] = nullptr;
  return options;
}

void RegisterAll(int records) {
  bench::RegisterReads(records);
  bench::RegisterGrowth(records);
  bench::RegisterWrites(records);
  bench::RegisterDescribed(records);
  bench::RegisterDestruction(records);
  bench::RegisterMemory(records);
#ifdef STEPRT_BENCH_XML
  bench::RegisterXml(records);
#endif
}

}  // namespace

int main(int argc, char** argv) {
  const Options options = TakeOptions(&argc, argv);
  bench::SetDataFolder(options.data);
  bench::SetMemory(options.memory);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  for (const int records : kSizes) RegisterAll(records);
  if (options.isFull) RegisterAll(kFullSize);
  bench::RegisterSchemas();
  bench::RegisterDoublings(bench::ClearTextShapes(), nullptr);
  bench::RegisterDoublings(bench::StandardShapes(), nullptr);
#ifdef STEPRT_BENCH_XML
  bench::RegisterDoublings(bench::XmlShapes(), bench::ParseAtOnce);
#endif
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  bench::RemovePopulationFiles();
  return bench::HasFailed() ? 1 : 0;
}
