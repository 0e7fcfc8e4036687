#include "support/proj_schema.h"

#include <charconv>
#include <unordered_map>

#include "support/temp_files.h"

namespace steprt_test {
namespace {

const std::unordered_map<int, Shape> kShapes = {
    {kWall,
     {{"Name", 't'},
      {"Height", 'r'},
      {"Owner", 'f', kPerson},
      {"Doors", 'A', kDoor},
      {"Layers", 'p'},
      {"External", 'b'}}},
    {kDoor, {{"Host", 'f', kWall}}},
    {kSample,
     {{"Text", 't'},
      {"Int", 'i'},
      {"Real", 'r'},
      {"Bool", 'b'},
      {"Log", 'l'},
      {"Enum", 'e'},
      {"Sel", 's'},
      {"Ref", 'f', kProduct},
      {"Refs", 'a'},
      {"Reals", 'p'},
      {"Colours", 'E'},
      {"Texts", 'T'}}},
    {kNote, {{"Text", 't'}}},
    {kPoint, {{"X", 'r'}, {"Y", 'r'}, {"Z", 'r'}}},
    {kPerson, {{"Age", 'i'}}},
};

Probe probe;
STEPheader* const kKept = reinterpret_cast<STEPheader*>(&probe);  // in a PROBE's references at first

Shape ShapeOf(int type) {
  static const char* const kNames[] = {"A", "B", "C", "D", "E", "F", "G", "H"};
  const auto known = kShapes.find(type);
  Shape shape = known == kShapes.end() ? Shape() : known->second;
  if (type != kProbe) return shape;
  for (const char kind : probe.kinds) shape.push_back({kNames[shape.size()], kind, probe.expected});
  return shape;
}

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
  for (std::size_t i = 0; i < entity->shape.size(); ++i)
    KindOf(entity->shape[i]).write(t, entity->shape[i], entity->values[i]);
}

// ---- a population, printed -----------------------------------------------------------------------------------------

using Places = std::unordered_map<const STEPheader*, std::size_t>;

std::string RealText(double real) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, real).ptr};
}

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

std::string ObjectText(const STEPheader* object, const Places& places) {
  if (!object || object == kKept) return object ? "kept" : "null";
  const auto place = places.find(object);
  return place == places.end() ? "stranger" : "@" + std::to_string(place->second);
}

std::string SelectText(STEPselect& select, const Places& places) {
  switch (select.Type()) {
    case STEPselect::SEL_INT:
      return "int " + std::to_string(select.GetInt());
    case STEPselect::SEL_REAL:
      return "real " + RealText(select.GetReal());
    case STEPselect::SEL_TEXT:
      return "text " + Quoted(select.GetCharPtr());
    case STEPselect::SEL_OBJ:
      return "object " + ObjectText(select.GetSTEPobj(), places);
    default:
      return "none";
  }
}

std::string NodeText(const STEPlist& node, char kind, const Places& places) {
  switch (kind) {
    case 'p':
      return RealText(node.value.real);
    case 'E':
      return std::to_string(node.value.integer);
    case 'T':
      return Quoted(node.value.text);
    default:
      return ObjectText(node.value.object, places);
  }
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
  switch (kind) {
    case 't':
      return Quoted(value.text);
    case 'i':
    case 'l':
    case 'e':
      return std::to_string(value.integer);
    case 'r':
      return RealText(value.real);
    case 'b':
      return value.integer ? "T" : "F";
    case 's':
      return SelectText(value.select, places);
    case 'f':
      return ObjectText(value.object, places);
    default:
      return ListText(value.list, kind, places);
  }
}

}  // namespace

Entity::Entity(int kind, STEPmodel* owner)
    : STEPheader(owner), shape(ShapeOf(kind)), values(std::make_unique<Value[]>(shape.size())) {
  Type(kind);
  for (std::size_t i = 0; kind == kProbe && i < shape.size(); ++i) values[i].object = kKept;
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

Texts Population(STEPmodel& model) {
  Places places;
  for (const STEPheader* object = model.Inst(); object; object = object->next) places[object] = places.size() + 1;
  Texts texts;
  for (STEPheader* object = model.Inst(); object; object = object->next) {
    auto* entity = static_cast<Entity*>(object);
    std::string& text = texts.emplace_back(std::string(entity->EntityName()) + "(");
    for (std::size_t i = 0; i < entity->shape.size(); ++i) {
      text += (i ? "," : "") + ValueText(entity->values[i], entity->shape[i].kind, places);
    }
    text += ")";
  }
  return texts;
}

std::string InFrame(const std::string& data) {
  return "ISO-10303-21;HEADER;FILE_SCHEMA(('PROJ'));ENDSEC;DATA;" + data + "ENDSEC;END-ISO-10303-21;";
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
