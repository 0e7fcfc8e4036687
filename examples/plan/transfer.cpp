#include "transfer.h"

#include <cstring>

namespace plan {
namespace {

bool keepsNullMarks = false;  // a row's functions are plain ones, so it is one of the process

class Reader : public Attributes {
 public:
  explicit Reader(STEPtransfer* transfer) : t(transfer) {}

  // The text lives until the next reader is called; the assignment copies it. XML writes an omitted text as `$`.
  void Text(const char* name, STEPstring& value) override {
    const char* text = rSTEPtext(t, name);
    value = std::strcmp(text, "$") == 0 && !keepsNullMarks ? "" : text;
  }
  void Integer(const char* name, int& value) override { value = rSTEPint(t, name); }
  void Real(const char* name, double& value) override { value = rSTEPreal(t, name); }
  void Boolean(const char* name, bool& value) override { value = rSTEPbool(t, name); }
  void Enumeration(const char* name, int& value, const Enumerators& names) override {
    value = rSTEPenum(t, name, names.names, names.count);
  }
  void Select(const char* name, STEPselect& value) override { rSTEPsel(t, name, &value); }
  void Numbers(const char* name, NumberList& value) override { xrSTEPaggrPrim(t, name, &value.aggregate); }
  void Texts(const char* name, TextList& value) override { xrSTEPtextAggr(t, name, &value.aggregate); }

 protected:
  void ReferenceTo(const char* name, STEPheader*& value, int type) override { xrSTEPref(t, name, &value, type, true); }
  // A member that was never found is null, and is written as `$`: so null members are taken everywhere.
  void ReferencesTo(const char* name, List& value, int type) override {
    xrSTEPaggr(t, name, &value.aggregate, type, true);
  }

 private:
  STEPtransfer* t;
};

class Writer : public Attributes {
 public:
  explicit Writer(STEPtransfer* transfer) : t(transfer) {}

  void Text(const char* name, STEPstring& value) override {
    wSTEPtext(t, name, value.IsEmpty() ? nullptr : static_cast<const char*>(value));
  }
  void Integer(const char* name, int& value) override { wSTEPint(t, name, value); }
  void Real(const char* name, double& value) override { wSTEPreal(t, name, value); }
  void Boolean(const char* name, bool& value) override { wSTEPbool(t, name, value); }
  void Enumeration(const char* name, int& value, const Enumerators& names) override {
    wSTEPenum(t, name, value, names.names);
  }
  void Select(const char* name, STEPselect& value) override { wSTEPsel(t, name, &value); }
  void Numbers(const char* name, NumberList& value) override { xwSTEPaggrPrim(t, name, value.aggregate); }
  void Texts(const char* name, TextList& value) override { xwSTEPtextAggr(t, name, value.aggregate); }

 protected:
  void ReferenceTo(const char* name, STEPheader*& value, int) override { xwSTEPref(t, name, value); }
  void ReferencesTo(const char* name, List& value, int) override { xwSTEPaggr(t, name, value.aggregate); }

 private:
  STEPtransfer* t;
};

}  // namespace

KeepNullMarks::KeepNullMarks() { keepsNullMarks = true; }
KeepNullMarks::~KeepNullMarks() { keepsNullMarks = false; }

void ReadAttributes(STEPtransfer* transfer, Entity& entity) {
  Reader reader(transfer);
  entity.Describe(reader);
}

void WriteEntity(STEPtransfer* transfer, STEPheader* object) {
  Writer writer(transfer);
  static_cast<Entity*>(object)->Describe(writer);
}

}  // namespace plan
