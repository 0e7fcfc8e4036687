#include "client.h"

#include "check.h"
#include "reports.h"
#include "tame.h"

namespace fuzz {
namespace {

const char* colours[] = {".RED.", ".GREEN.", ".BLUE.", ".DEEP_BLUE."};
constexpr int kColours = 4;

template <typename Entity, int kType>
STEPheader* Make(STEPtransfer* t) {
  auto* entity = new Entity;
  entity->Type(kType);
  entity->Read(t);
  return entity;
}

void Put(STEPtransfer* t, STEPheader* object) { static_cast<Thing*>(object)->Write(t); }

STEPheader* ReadDropped(STEPtransfer* t) {
  xrSTEPaggrPrim(t, "Reals", nullptr);
  xrSTEPaggrEnum(t, nullptr, colours, kColours);
  xrSTEPtextAggr(t, "Texts", nullptr);
  return nullptr;
}

constexpr APPentity kItemRows[] = {
    {"ITEM", Make<Item, kItem>, Put, kItem, nullptr},
    {"SHADOW", Make<Item, kShadow>, nullptr, kShadow, "ITEM"},
    {"OUTLINE", nullptr, Put, kOutline, "ITEM"},
};

constexpr APPentity kRows[] = {
    {"SCALARS", Make<Scalars, kScalars>, Put, kScalars, "ITEM"},
    {"LINKS", Make<Links, kLinks>, Put, kLinks, "ITEM"},
    {"LISTS", Make<Lists, kLists>, Put, kLists, "LINKS"},
    {"DROPPED", ReadDropped, Put, kDropped, nullptr},
    {"EMPTY", Make<Empty, kEmpty>, Put, kEmpty, nullptr},
    {"STRAY", Make<Empty, kStray>, Put, kStrayRow, nullptr},
};

void DeleteAggr(STEPaggr* aggr) {
  if (aggr) DeleteSTEPlist(&aggr->head);
  delete aggr;
}

}  // namespace

// ---- entities

void Empty::Read(STEPtransfer* /*t*/) {}
void Empty::Write(STEPtransfer* /*t*/) {}
void Empty::Tame(Form /*form*/) {}

void Item::Read(STEPtransfer* t) {
  name_ = rSTEPtext(t, "Name");
  Id(name_.c_str());
  count_ = rSTEPint(t, "Count");
}

void Item::Write(STEPtransfer* t) {
  wSTEPtext(t, "Name", name_.c_str());
  wSTEPint(t, "Count", count_);
}

void Item::Tame(Form form) { TameText(form, name_); }

void Scalars::Read(STEPtransfer* t) {
  Item::Read(t);
  text_ = rSTEPtext(t, "Text");
  real_ = rSTEPreal(t, "Real");
  flag_ = rSTEPbool(t, "Flag");
  logical_ = rSTEPlog(t, "Logical");
  colour_ = rSTEPenum(t, "Colour", colours, kColours);
  STEPRT_CHECK(logical_ >= -1 && logical_ <= 1);
  STEPRT_CHECK(colour_ >= 0 && colour_ < kColours);
}

void Scalars::Write(STEPtransfer* t) {
  Item::Write(t);
  wSTEPtext(t, "Text", text_.c_str());
  wSTEPreal(t, "Real", real_);
  wSTEPbool(t, "Flag", flag_);
  wSTEPlog(t, "Logical", logical_);
  wSTEPenum(t, "Colour", colour_, colours);
}

void Scalars::Tame(Form form) {
  Item::Tame(form);
  TameText(form, text_);
  TameReal(real_);
}

void Links::Read(STEPtransfer* t) {
  Item::Read(t);
  xrSTEPref(t, "Item", &item_, kItem, true);
  xrSTEPref(t, "Any", &any_, -1, true);
  xrSTEPref(t, "Exact", &exact_, kEmpty, false);
  rSTEPsel(t, "Value", &value_);
  rSTEPsel(t, "Other", &other_);
}

void Links::Write(STEPtransfer* t) {
  Item::Write(t);
  xwSTEPref(t, "Item", item_);
  xwSTEPref(t, "Any", any_);
  xwSTEPref(t, "Exact", exact_);
  wSTEPsel(t, "Value", &value_);
  wSTEPsel(t, "Other", &other_);
}

void Links::Tame(Form form) {
  Item::Tame(form);
  for (STEPheader** reference : {&item_, &any_, &exact_}) TameReference(*reference);
  for (STEPselect* select : {&value_, &other_}) TameSelect(form, *select);
}

Lists::~Lists() {
  for (STEPlist* node = texts_ ? texts_->head : nullptr; node; node = node->next) delete[] node->value.text;
  for (STEPaggr* aggr : {members_, gaps_, reals_, colours_, texts_}) DeleteAggr(aggr);
}

void Lists::Read(STEPtransfer* t) {
  Links::Read(t);
  xrSTEPaggr(t, "Members", &members_, kItem, false);
  xrSTEPaggr(t, "Gaps", &gaps_, -1, true);
  xrSTEPaggrPrim(t, "Reals", &reals_);
  xrSTEPaggrEnum(t, &colours_, colours, kColours);
  xrSTEPtextAggr(t, "Texts", &texts_);
}

void Lists::Write(STEPtransfer* t) {
  Links::Write(t);
  xwSTEPaggr(t, "Members", members_);
  xwSTEPaggr(t, "Gaps", gaps_);
  xwSTEPaggrPrim(t, "Reals", reals_);
  xwSTEPaggrEnum(t, colours_, colours);
  xwSTEPtextAggr(t, "Texts", texts_);
}

void Lists::Tame(Form form) {
  Links::Tame(form);
  TameReferences(members_, NullMembers::kRemove);
  TameReferences(gaps_, NullMembers::kKeep);
  TameReals(reals_);
  if (form == Form::kXml && colours_) DeleteSTEPlist(&colours_->head);  // has no element
  TameTexts(form, texts_);
}

// ---- schema and model

APPobject0* Schema() {
  static APPtable items("FUZZ_ITEMS", kItemRows);
  static APPtable table("FUZZ", kRows, Report);
  table.next = &items;
  return &table;
}

Model::Model(const char* fileName) {
  AppObj(Schema());
  Name(fileName);
}

void Model::TameAll(Form form) {
  for (STEPheader* object = first; object; object = object->next) static_cast<Thing*>(object)->Tame(form);
}

void Model::CheckSound() {
  STEPheader** link = &first;
  for (; *link; link = &(*link)->next) STEPRT_CHECK((*link)->model == this);
  STEPRT_CHECK(tail == link);
}

int Model::CountInstances() {
  int count = 0;
  for (STEPheader* object = first; object; object = object->next) ++count;
  return count;
}

int Model::CountWritable() {
  int count = 0;
  for (STEPheader* object = first; object; object = object->next) count += IsWritten(object);
  return count;
}

bool IsWritten(STEPheader* object) { return object->type != kShadow && object->type != kStray; }

}  // namespace fuzz
