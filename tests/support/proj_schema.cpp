#include "support/proj_schema.h"

#include <charconv>
#include <unordered_map>

#include "support/temp_files.h"

namespace steprt_test {
namespace {

const Shape kWallShape = {{"Name", 't'},         {"Height", 'r'}, {"Owner", 'f', kPerson},
                          {"Doors", 'A', kDoor}, {"Layers", 'p'}, {"External", 'b'}};
const Shape kDoorShape = {{"Host", 'f', kWall}};
const Shape kSampleShape = {{"Text", 't'}, {"Int", 'i'},   {"Real", 'r'},    {"Bool", 'b'},
                            {"Log", 'l'},  {"Enum", 'e'},  {"Sel", 's'},     {"Ref", 'f', kProduct},
                            {"Refs", 'a'}, {"Reals", 'p'}, {"Colours", 'E'}, {"Texts", 'T'}};
const Shape kNoteShape = {{"Text", 't'}};
const Shape kPointShape = {{"X", 'r'}, {"Y", 'r'}, {"Z", 'r'}};
const Shape kPersonShape = {{"Age", 'i'}};

Probe probe;
STEPheader* const kKept = reinterpret_cast<STEPheader*>(&probe);  // in a PROBE's references at first

Shape ProbeShape() {
  static const char* const kNames[] = {"A", "B", "C", "D", "E", "F", "G", "H"};
  Shape shape;
  for (const char kind : probe.kinds) shape.push_back({kNames[shape.size()], kind, probe.expected});
  return shape;
}

Shape ShapeOf(int type) {
  switch (type) {
    case kWall:
      return kWallShape;
    case kDoor:
      return kDoorShape;
    case kSample:
      return kSampleShape;
    case kNote:
      return kNoteShape;
    case kPoint:
      return kPointShape;
    case kPerson:
      return kPersonShape;
    default:
      return type == kProbe ? ProbeShape() : Shape();
  }
}

void ReadValue(STEPtransfer* t, const Attribute& attribute, Value& value) {
  const char* name = attribute.name;
  switch (attribute.kind) {
    case 't':
      value.text = rSTEPtext(t, name);
      return;
    case 'i':
      value.integer = rSTEPint(t, name);
      return;
    case 'r':
      value.real = rSTEPreal(t, name);
      return;
    case 'b':
      value.integer = rSTEPbool(t, name);
      return;
    case 'l':
      value.integer = rSTEPlog(t, name);
      return;
    case 'e':
      value.integer = rSTEPenum(t, name, kColours, 3);
      return;
    case 's':
      return rSTEPsel(t, name, &value.select);
    case 'f':
      return xrSTEPref(t, name, &value.object, attribute.expected, true);
    case 'a':
    case 'A':
      return xrSTEPaggr(t, name, &value.list, attribute.expected, attribute.kind == 'A');
    case 'p':
    case 'P':
      return xrSTEPaggrPrim(t, name, attribute.kind == 'p' ? &value.list : nullptr);
    case 'E':
    case 'N':
      return xrSTEPaggrEnum(t, attribute.kind == 'E' ? &value.list : nullptr, kColours, 3);
    default:
      return xrSTEPtextAggr(t, name, attribute.kind == 'T' ? &value.list : nullptr);
  }
}

void WriteValue(STEPtransfer* t, const Attribute& attribute, Value& value) {
  const char* name = attribute.name;
  switch (attribute.kind) {
    case 't':
      return wSTEPtext(t, name, value.text.c_str());
    case 'i':
      return wSTEPint(t, name, value.integer);
    case 'r':
      return wSTEPreal(t, name, value.real);
    case 'b':
      return wSTEPbool(t, name, value.integer != 0);
    case 'l':
      return wSTEPlog(t, name, value.integer);
    case 'e':
      return wSTEPenum(t, name, value.integer, kColours);
    case 's':
      return wSTEPsel(t, name, &value.select);
    case 'f':
      return xwSTEPref(t, name, value.object);
    case 'a':
    case 'A':
      return xwSTEPaggr(t, name, value.list);
    case 'p':
      return xwSTEPaggrPrim(t, name, value.list);
    case 'E':
      return xwSTEPaggrEnum(t, value.list, kColours);
    default:
      return xwSTEPtextAggr(t, name, value.list);
  }
}

template <int kType>
STEPheader* Read(STEPtransfer* t) {
  if (kType == kProbe && probe.read) return probe.read(t);
  auto* entity = new Entity(kType);
  for (std::size_t i = 0; i < entity->shape.size(); ++i) ReadValue(t, entity->shape[i], entity->values[i]);
  return entity;
}

void Write(STEPtransfer* t, STEPheader* object) {
  if (object->type == kProbe && probe.write) return probe.write(t);
  auto* entity = static_cast<Entity*>(object);
  for (std::size_t i = 0; i < entity->shape.size(); ++i) WriteValue(t, entity->shape[i], entity->values[i]);
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
