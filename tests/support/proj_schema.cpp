#include "support/proj_schema.h"

#include <gtest/gtest.h>

#include <charconv>
#include <unordered_map>

#include "support/temp_files.h"

namespace steprt_test {
namespace {

// The attributes of an entity, and the types that its reference and its list of references are of.
const struct {
  int type;
  const char* kinds;
  std::vector<const char*> names;
  int reference = -1;
  int list = -1;
} kShapes[] = {
    {kWall, "trfApb", {"Name", "Height", "Owner", "Doors", "Layers", "External"}, kPerson, kDoor},
    {kDoor, "f", {"Host"}, kWall},
    {kSample,
     "tirblesfapET",
     {"Text", "Int", "Real", "Bool", "Log", "Enum", "Sel", "Ref", "Refs", "Reals", "Colours", "Texts"},
     kProduct},
    {kNote, "t", {"Text"}},
    {kPoint, "rrr", {"X", "Y", "Z"}},
    {kPerson, "i", {"Age"}},
};

Probe probe;
struct ProbeReset : testing::EmptyTestEventListener {
  void OnTestEnd(const testing::TestInfo&) override { probe = {}; }
};
[[maybe_unused]] const bool isReset = (testing::UnitTest::GetInstance()->listeners().Append(new ProbeReset), true);

STEPheader kept(static_cast<void*>(nullptr));  // in a PROBE's references at first

using T = STEPtransfer*;
using A = const Attribute&;
using V = Value&;

// How an attribute of each kind is read and written.
constexpr struct Kind {
  char letter;
  void (*read)(T t, A a, V v);
  void (*write)(T t, A a, V v);
} kKinds[] = {
    {'t', [](T t, A a, V v) { v.text = rSTEPtext(t, a.name); },
     [](T t, A a, V v) { wSTEPtext(t, a.name, v.text.c_str()); }},
    {'i', [](T t, A a, V v) { v.integer = rSTEPint(t, a.name); },
     [](T t, A a, V v) { wSTEPint(t, a.name, v.integer); }},
    {'r', [](T t, A a, V v) { v.real = rSTEPreal(t, a.name); }, [](T t, A a, V v) { wSTEPreal(t, a.name, v.real); }},
    {'b', [](T t, A a, V v) { v.integer = rSTEPbool(t, a.name); },
     [](T t, A a, V v) { wSTEPbool(t, a.name, v.integer != 0); }},
    {'l', [](T t, A a, V v) { v.integer = rSTEPlog(t, a.name); },
     [](T t, A a, V v) { wSTEPlog(t, a.name, v.integer); }},
    {'e', [](T t, A a, V v) { v.integer = rSTEPenum(t, a.name, kColours, 3); },
     [](T t, A a, V v) { wSTEPenum(t, a.name, v.integer, kColours); }},
    {'s', [](T t, A a, V v) { rSTEPsel(t, a.name, &v.select); }, [](T t, A a, V v) { wSTEPsel(t, a.name, &v.select); }},
    {'f', [](T t, A a, V v) { xrSTEPref(t, a.name, &v.object, a.expected, true); },
     [](T t, A a, V v) { xwSTEPref(t, a.name, v.object); }},
    {'a', [](T t, A a, V v) { xrSTEPaggr(t, a.name, &v.list, a.expected, false); },
     [](T t, A a, V v) { xwSTEPaggr(t, a.name, v.list); }},
    {'A', [](T t, A a, V v) { xrSTEPaggr(t, a.name, &v.list, a.expected, true); },
     [](T t, A a, V v) { xwSTEPaggr(t, a.name, v.list); }},
    {'p', [](T t, A a, V v) { xrSTEPaggrPrim(t, a.name, &v.list); },
     [](T t, A a, V v) { xwSTEPaggrPrim(t, a.name, v.list); }},
    {'E', [](T t, A, V v) { xrSTEPaggrEnum(t, &v.list, kColours, 3); },
     [](T t, A, V v) { xwSTEPaggrEnum(t, v.list, kColours); }},
    {'T', [](T t, A a, V v) { xrSTEPtextAggr(t, a.name, &v.list); },
     [](T t, A a, V v) { xwSTEPtextAggr(t, a.name, v.list); }},
    {'P', [](T t, A a, V) { xrSTEPaggrPrim(t, a.name, nullptr); }, nullptr},
    {'N', [](T t, A, V) { xrSTEPaggrEnum(t, nullptr, kColours, 3); }, nullptr},
    {'X', [](T t, A a, V) { xrSTEPtextAggr(t, a.name, nullptr); }, nullptr},
};

const Kind& KindOf(const Attribute& attribute) {
  const Kind* kind = kKinds;
  while (kind->letter != attribute.kind) ++kind;
  return *kind;
}

template <int kType>
STEPheader* Read(STEPtransfer* t) {
  if (kType == kProbe && probe.read) return probe.read(t);
  auto* entity = new Entity(kType);
  for (std::size_t i = 0; i < entity->shape.size(); ++i)
    KindOf(entity->shape[i]).read(t, entity->shape[i], entity->values[i]);
  return entity;
}

void Write(STEPtransfer* t, STEPheader* object) {
  if (object->type == kProbe && probe.write) return probe.write(t);
  auto* entity = static_cast<Entity*>(object);
  for (std::size_t i = 0; i < entity->shape.size(); ++i) {
    const Kind& kind = KindOf(entity->shape[i]);
    if (kind.write) kind.write(t, entity->shape[i], entity->values[i]);
  }
}

// ---- a population, printed -----------------------------------------------------------------------------------------

using Places = std::unordered_map<const STEPheader*, std::size_t>;

std::string ObjectText(const STEPheader* object, const Places& places) {
  if (!object || object == &kept) return object ? "kept" : "null";
  const auto place = places.find(object);
  return place == places.end() ? "stranger" : "@" + std::to_string(place->second);
}

std::string SelectText(STEPselect& select, const Places& places) {
  const STEPselect::SelType type = select.Type();
  if (type == STEPselect::SEL_INT) return "int " + std::to_string(select.GetInt());
  if (type == STEPselect::SEL_REAL) return "real " + RealText(select.GetReal());
  if (type == STEPselect::SEL_TEXT) return "text " + Quoted(select.GetCharPtr());
  return type == STEPselect::SEL_OBJ ? "object " + ObjectText(select.GetSTEPobj(), places) : "none";
}

std::string NodeText(const STEPlist& node, char kind, const Places& places) {
  if (kind == 'p') return RealText(node.value.real);
  if (kind == 'E') return std::to_string(node.value.integer);
  return kind == 'T' ? Quoted(node.value.text) : ObjectText(node.value.object, places);
}

std::string ListText(const STEPaggr* list, char kind, const Places& places) {
  if (!list) return "none";
  std::string text = "[";
  for (const STEPlist* node = list->head; node; node = node->next) {
    if (node != list->head) text += ",";
    text += NodeText(*node, kind, places);
  }
  return text + "]";
}

std::string ValueText(Value& value, char kind, const Places& places) {
  if (kind == 't') return Quoted(value.text);
  if (kind == 'i' || kind == 'l' || kind == 'e') return std::to_string(value.integer);
  if (kind == 'r') return RealText(value.real);
  if (kind == 'b') return value.integer ? "T" : "F";
  if (kind == 's') return SelectText(value.select, places);
  return kind == 'f' ? ObjectText(value.object, places) : ListText(value.list, kind, places);
}

std::string InstanceText(STEPheader* object, const Places& places) {
  if (object->type == STEPcomplex::kType) {
    std::string text = "{";
    for (STEPheader* part = static_cast<STEPcomplex*>(object)->Parts(); part; part = part->next) {
      text += (text.size() > 1 ? " " : "") + InstanceText(part, places);
    }
    return text + "}";
  }
  auto* entity = dynamic_cast<Entity*>(object);
  if (!entity) return std::string("?") + object->id;  // a part that has no row
  std::string text = std::string(entity->EntityName()) + "(";
  for (std::size_t i = 0; i < entity->shape.size(); ++i) {
    text += (i ? "," : "") + ValueText(entity->values[i], entity->shape[i].kind, places);
  }
  return text + ")";
}

}  // namespace

Entity::Entity(int kind, STEPmodel* owner)
    : STEPheader(owner), shape(ShapeOf(kind)), values(std::make_unique<Value[]>(shape.size())) {
  Type(kind);
  for (std::size_t i = 0; kind == kProbe && i < shape.size(); ++i) values[i].object = &kept;
}

Entity::~Entity() {
  for (std::size_t i = 0; i < shape.size(); ++i) {
    STEPaggr* list = values[i].list;
    if (!list) continue;
    for (const STEPlist* node = list->head; node && shape[i].kind == 'T'; node = node->next) delete[] node->value.text;
    DeleteSTEPlist(&list->head);
    delete list;
  }
}

void SetProbe(Probe wanted) { probe = std::move(wanted); }

Shape ShapeOf(int type) {
  static const char* const kNames[] = {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L"};
  Shape shape;
  for (const auto& each : kShapes) {
    for (std::size_t i = 0; each.type == type && i < each.names.size(); ++i) {
      shape.push_back({each.names[i], each.kinds[i], each.kinds[i] == 'f' ? each.reference : each.list});
    }
  }
  if (type != kProbe) return shape;
  for (const char kind : probe.kinds) shape.push_back({kNames[shape.size()], kind, probe.expected});
  return shape;
}

APPobject0* ProjSchema() {
  static const APPentity kBaseRows[] = {{"PRODUCT", nullptr, Write, kProduct, nullptr},
                                        {"POINT", Read<kPoint>, Write, kPoint, nullptr},
                                        {"PERSON", Read<kPerson>, Write, kPerson, nullptr}};
  static const APPentity kProjRows[] = {{"WALL", Read<kWall>, Write, kWall, "PRODUCT"},
                                        {"DOOR", Read<kDoor>, Write, kDoor, "WALL"},
                                        {"SAMPLE", Read<kSample>, Write, kSample, nullptr},
                                        {"NOTE", Read<kNote>, nullptr, kNote, nullptr},
                                        {"PROBE", Read<kProbe>, Write, kProbe, nullptr}};
  static APPtable base("BASE", kBaseRows);
  static APPtable proj("PROJ", kProjRows, CollectReport);
  proj.next = &base;
  return &proj;
}

ProjModel::ProjModel(int limit) : STEPmodel(limit) { AppObj(ProjSchema()); }

ProjModel::~ProjModel() {
  if (CurrentModel() == this) CurrentModel(nullptr);
}

std::string RealText(double real) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, real).ptr};
}

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

Texts Population(STEPmodel& model) {
  Places places;
  for (const STEPheader* object = model.Inst(); object; object = object->next) places[object] = places.size() + 1;
  Texts texts;
  for (STEPheader* object = model.Inst(); object; object = object->next) {
    texts.push_back(InstanceText(object, places));
  }
  return texts;
}

std::string InFrame(const std::string& data) {
  return "ISO-10303-21;HEADER;FILE_SCHEMA(('PROJ'));ENDSEC;DATA;" + data + "ENDSEC;END-ISO-10303-21;";
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  out << outcome.result;
  for (const std::string& report : outcome.reports) out << "\n  report " << report;
  for (const std::string& instance : outcome.population) out << "\n  " << instance;
  return out;
}

Outcome ReadBytes(STEPmodel& model, const std::string& bytes, bool check) {
  std::string path = MakeFile("read.stp", bytes);
  CurrentModel(&model);
  const int result = STEPread(path.data(), ProjSchema(), check);
  return {result, TakeReports(path), Population(model)};
}

Outcome ReadBytes(const std::string& bytes, bool check) {
  ProjModel model;
  return ReadBytes(model, bytes, check);
}

Outcome ReadData(const std::string& data) { return ReadBytes(InFrame(data)); }

}  // namespace steprt_test
