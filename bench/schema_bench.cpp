// Lookups, subtype tests, subtype expansion and queries by type, in schemas of several sizes, by the walk along the
// chain and by the index. What is timed is one call.
#include <algorithm>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "pairs.h"
#include "schema/lookup.h"
#include "steprt/step.h"
#include "tasks.h"

namespace bench {
namespace {

constexpr int kRows[] = {10, 100, 653, 2'000};
constexpr int kInstances = 1'000;
constexpr int kQuestions = 512;  // a power of two
constexpr int kDepth = 2;

const char* const kWords[] = {
    "ABSTRACT", "ADVANCED", "ANNOTATION", "APPLIED", "AREA",    "ASSEMBLY",  "AXIS",     "BEAM",    "BOUNDARY",
    "BREP",     "BUILDING", "CABLE",      "CIRCLE",  "COLUMN",  "COMPONENT", "CONSTANT", "CONTEXT", "CONTROL",
    "CURVE",    "DATE",     "DEFINITION", "DEVICE",  "DOOR",    "ELEMENT",   "FACE",     "FLOW",    "GEOMETRIC",
    "GRID",     "GROUP",    "ITEM",       "LAYER",   "LINE",    "LOOP",      "MATERIAL", "MEASURE", "MEMBER",
    "OBJECT",   "OCCUPANT", "PLATE",      "POINT",   "PRODUCT", "PROFILE",   "PROPERTY", "RAILING", "REPRESENTATION",
    "ROOF",     "SECTION",  "SHAPE",      "SLAB",    "SOLID",   "SPACE",     "STYLE",    "SURFACE", "SYSTEM",
    "TABLE",    "TASK",     "TOLERANCE",  "TYPE",    "UNIT",    "VALUE",     "VECTOR",   "VERTEX",  "WALL",
};

// One to four different words, with or without something between them.
std::string MakeName(std::mt19937& random) {
  const char* const separator = random() % 2 ? "_" : "";
  std::set<std::size_t> used;
  std::string name;
  for (auto count = 1 + random() % 4; count > 0; --count) {
    const std::size_t word = random() % std::size(kWords);
    if (!used.insert(word).second) continue;
    if (!name.empty()) name += separator;
    name += kWords[word];
  }
  return name;
}

// Each row is below one of those in front of it; one in twelve is a root.
class GeneratedSchema {
 public:
  explicit GeneratedSchema(int rows) : random_(static_cast<unsigned>(rows)) {
    while (static_cast<int>(names_.size()) < rows) names_.insert(MakeName(random_));
    std::vector<const char*> order;
    for (const std::string& name : names_) order.push_back(name.c_str());
    std::shuffle(order.begin(), order.end(), random_);
    memory_.reset(::operator new(sizeof(APPobject0) + order.size() * sizeof(APPentity)));
    auto* head = new (memory_.get()) APPobject0{nullptr, "GENERATED", nullptr, nullptr, nullptr, {}};
    for (std::size_t i = 0; i < order.size(); ++i) {
      const char* super = i == 0 || random_() % 12 == 0 ? nullptr : order[random_() % i];
      head->entities[i] = {order[i], nullptr, nullptr, static_cast<int>(i), super};
    }
    head->entities[order.size()] = {};
  }

  APPobject0* Head() const { return static_cast<APPobject0*>(memory_.get()); }
  int AnyType() { return static_cast<int>(random_() % names_.size()); }

 private:
  struct Release {
    void operator()(void* memory) const { ::operator delete(memory); }
  };

  std::mt19937 random_;
  std::set<std::string> names_;
  std::unique_ptr<void, Release> memory_;
};

class GeneratedModel : public STEPmodel {
 public:
  explicit GeneratedModel(GeneratedSchema& generated) {
    AppObj(generated.Head());
    for (int i = 0; i < kInstances; ++i) {
      auto* object = new STEPheader(this);
      object->Type(generated.AnyType());
      source.Append(object);
      objects.push_back(object);
    }
  }
  ~GeneratedModel() override { DeleteSTEPlist(&source.head); }

  std::vector<STEPheader*> objects;
  STEPaggr source;
};

// What is asked: a row, another one's type, and an instance.
struct Question {
  const APPentity* row;
  int type;
  STEPheader* object;
};

class World {
 public:
  World(int rows, bool indexed) : schema(rows), model(schema) {
    for (int i = 0; i < kQuestions; ++i) {
      questions.push_back({&schema.Head()->entities[schema.AnyType()], schema.AnyType(),
                           model.objects[static_cast<std::size_t>(schema.AnyType()) % model.objects.size()]});
    }
    if (indexed) model.PrepareHash();
  }

  GeneratedSchema schema;
  GeneratedModel model;
  std::vector<Question> questions;
};

int Take(STEPlist* head) {
  int count = 0;
  for (const STEPlist* node = head; node; node = node->next) ++count;
  DeleteSTEPlist(&head);
  return count;
}

int Take(STEPaggr* aggr) {
  const int count = Take(aggr->head);
  delete aggr;
  return count;
}

int FindByName(World& world, const Question& question) {
  return steprt::FindEntityByName(question.row->name, world.schema.Head())->type;
}

int FindByType(World& world, const Question& question) {
  return steprt::FindEntityByType(question.row->type, world.schema.Head())->type;
}

int IsKindOf(World&, const Question& question) { return question.object->IsKindOf(question.type); }

int Expand(World& world, const Question& question) {
  int types[31];
  return ExtractTypes(world.schema.Head(), question.type, types, 31, 31);
}

int QueryList(World& world, const Question& question) { return Take(world.model.GetSTEPlist(question.type, kDepth)); }

int QueryAggr(World& world, const Question& question) { return Take(world.model.GetSTEPaggr(question.type, kDepth)); }

int QueryAll(World& world, const Question& question) { return Take(world.model.GetSTEPaggrAll(question.type)); }

int QuerySource(World& world, const Question& question) {
  return Take(world.model.GetSTEPaggr(&world.model.source, question.type, kDepth));
}

int QuerySourceAll(World& world, const Question& question) {
  return Take(world.model.GetSTEPaggrAll(&world.model.source, question.type));
}

struct Task {
  const char* name;
  int (*ask)(World&, const Question&);
  bool isCut;  // of more than 31 types the two ways keep different ones
};

const Task kTasks[] = {
    {"by_name", FindByName, false},   {"by_type", FindByType, false},      {"is_kind_of", IsKindOf, false},
    {"extract_types", Expand, false}, {"query_list", QueryList, true},     {"query_aggr", QueryAggr, true},
    {"query_all", QueryAll, true},    {"query_source", QuerySource, true}, {"query_source_all", QuerySourceAll, true},
};

bool IsCut(World& world, const Question& question) {
  int types[32];
  return ExtractTypes(world.schema.Head(), question.type, types, 32, 31) == 32;
}

bool SameAnswers(const Task& task, int rows) {
  World linear(rows, false);
  World indexed(rows, true);
  for (std::size_t i = 0; i < kQuestions; ++i) {
    if (task.isCut && IsCut(linear, linear.questions[i])) continue;
    if (task.ask(linear, linear.questions[i]) != task.ask(indexed, indexed.questions[i])) return false;
  }
  return true;
}

void AskOneByOne(benchmark::State& state, const Task& task, int rows, bool indexed) {
  if (!SameAnswers(task, rows)) return Fail(state, "the index gives other answers than the walk");
  World world(rows, indexed);
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(task.ask(world, world.questions[next]));
    next = (next + 1) % kQuestions;
  }
}

}  // namespace

void RegisterSchemas() {
  for (const Task& task : kTasks) {
    for (const int rows : kRows) {
      for (const bool indexed : {false, true}) {
        const std::string name = std::string("schema/") + task.name + (indexed ? "/indexed/" : "/linear/");
        benchmark::RegisterBenchmark((name + std::to_string(rows)).c_str(),
                                     [=](benchmark::State& state) { AskOneByOne(state, task, rows, indexed); });
      }
    }
  }
}

}  // namespace bench
