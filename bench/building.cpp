// The client's side of the library: the functions of the rows, and the descriptor.
#include "building.h"

#include <cstdio>
#include <cstring>
#include <random>

namespace bench {
namespace {

// Reads attributes through the library.
struct LibraryReader {
  STEPtransfer* t;

  void String(const char* name, Text& text) {
    const char* value = rSTEPtext(t, name);
    if (*value != '\0') text.chars = CopyText(value, std::strlen(value));
  }
  void Integer(const char* name, int& value) { value = rSTEPint(t, name); }
  void Real(const char* name, double& value) { value = rSTEPreal(t, name); }
  void Enumerator(const char* name, int& value, const char** names, int count) {
    value = rSTEPenum(t, name, names, count);
  }
  void Reference(const char* name, STEPheader*& slot, int expected) { xrSTEPref(t, name, &slot, expected, true); }
  void Reals(const char* name, List& list) { xrSTEPaggrPrim(t, name, &list.aggr); }
  void References(const char* name, List& list, int expected) { xrSTEPaggr(t, name, &list.aggr, expected, false); }
};

// Writes attributes through the library.
struct LibraryWriter {
  STEPtransfer* t;

  void String(const char* name, Text& text) { wSTEPtext(t, name, text.chars); }
  void Integer(const char* name, int& value) { wSTEPint(t, name, value); }
  void Real(const char* name, double& value) { wSTEPreal(t, name, value); }
  void Enumerator(const char* name, int& value, const char** names, int) { wSTEPenum(t, name, value, names); }
  void Reference(const char* name, STEPheader*& slot, int) { xwSTEPref(t, name, slot); }
  void Reals(const char* name, List& list) { xwSTEPaggrPrim(t, name, list.aggr); }
  void References(const char* name, List& list, int) { xwSTEPaggr(t, name, list.aggr); }
};

template <typename Class>
STEPheader* Read(STEPtransfer* t) {
  auto* object = new Class;
  LibraryReader reader{t};
  object->Attributes(reader);
  return object;
}

template <typename Class>
void Write(STEPtransfer* t, STEPheader* object) {
  LibraryWriter writer{t};
  static_cast<Class*>(object)->Attributes(writer);
}

template <typename Class>
APPentity Row(int type, const char* super) {
  return {Class::kKeyword, Read<Class>, Write<Class>, type, super};
}

APPentity AbstractRow(const char* name, int type, const char* super) { return {name, nullptr, nullptr, type, super}; }

const APPentity kUsedRows[] = {
    Row<Axis2Placement3D>(kAxis2Placement3D, "IFCPLACEMENT"),
    Row<ArbitraryClosedProfile>(kArbitraryClosedProfile, "IFCPROFILEDEF"),
    AbstractRow("IFCBOUNDEDCURVE", kBoundedCurve, "IFCCURVE"),
    AbstractRow("IFCBUILDINGELEMENT", kBuildingElement, "IFCELEMENT"),
    Row<BuildingStorey>(kBuildingStorey, "IFCSPATIALSTRUCTUREELEMENT"),
    Row<CartesianPoint>(kCartesianPoint, "IFCPOINT"),
    AbstractRow("IFCCURVE", kCurve, "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<Direction>(kDirection, "IFCGEOMETRICREPRESENTATIONITEM"),
    AbstractRow("IFCELEMENT", kElement, "IFCPRODUCT"),
    Row<ExtrudedAreaSolid>(kExtrudedAreaSolid, "IFCSWEPTAREASOLID"),
    Row<GeometricContext>(kGeometricContext, "IFCREPRESENTATIONCONTEXT"),
    AbstractRow("IFCGEOMETRICREPRESENTATIONITEM", kGeometricItem, "IFCREPRESENTATIONITEM"),
    Row<LocalPlacement>(kLocalPlacement, "IFCOBJECTPLACEMENT"),
    AbstractRow("IFCOBJECT", kObject, "IFCROOT"),
    AbstractRow("IFCOBJECTPLACEMENT", kObjectPlacement, nullptr),
    Row<OwnerHistory>(kOwnerHistory, nullptr),
    AbstractRow("IFCPLACEMENT", kPlacement, "IFCGEOMETRICREPRESENTATIONITEM"),
    AbstractRow("IFCPOINT", kPoint, "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<Polyline>(kPolyline, "IFCBOUNDEDCURVE"),
    AbstractRow("IFCPRODUCT", kProduct, "IFCOBJECT"),
    Row<ProductDefinitionShape>(kProductDefinitionShape, "IFCPRODUCTREPRESENTATION"),
    AbstractRow("IFCPRODUCTREPRESENTATION", kProductRepresentation, nullptr),
    AbstractRow("IFCPROFILEDEF", kProfileDef, nullptr),
    AbstractRow("IFCRELATIONSHIP", kRelationship, "IFCROOT"),
    AbstractRow("IFCRELCONNECTS", kRelConnects, "IFCRELATIONSHIP"),
    Row<RelContained>(kRelContained, "IFCRELCONNECTS"),
    AbstractRow("IFCREPRESENTATION", kRepresentation, nullptr),
    AbstractRow("IFCREPRESENTATIONCONTEXT", kRepresentationContext, nullptr),
    AbstractRow("IFCREPRESENTATIONITEM", kRepresentationItem, nullptr),
    AbstractRow("IFCROOT", kRoot, nullptr),
    AbstractRow("IFCSHAPEMODEL", kShapeModel, "IFCREPRESENTATION"),
    Row<ShapeRepresentation>(kShapeRepresentation, "IFCSHAPEMODEL"),
    AbstractRow("IFCSOLIDMODEL", kSolidModel, "IFCGEOMETRICREPRESENTATIONITEM"),
    AbstractRow("IFCSPATIALSTRUCTUREELEMENT", kSpatialStructureElement, "IFCPRODUCT"),
    AbstractRow("IFCSWEPTAREASOLID", kSweptAreaSolid, "IFCSOLIDMODEL"),
    AbstractRow("IFCWALL", kWall, "IFCBUILDINGELEMENT"),
    Row<WallStandardCase>(kWallStandardCase, "IFCWALL"),
};

// A name of 10 to 34 characters, and a supertype among the used rows.
APPentity PaddingRow(char* name, int i, std::mt19937& random, std::span<const APPentity> used) {
  const std::size_t length = 4 + random() % 25;
  std::memcpy(name, "IFC", 3);
  for (std::size_t k = 0; k < length; ++k) name[3 + k] = static_cast<char>('A' + random() % 26);
  std::snprintf(name + 3 + length, 4, "%03d", i);
  return AbstractRow(name, kFirstPadding + i, used[random() % used.size()].name);
}

}  // namespace

char* CopyText(const char* text, unsigned long length) {
  char* copy = new char[length + 1];
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  return copy;
}

PaddedRows::PaddedRows(std::span<const APPentity> used) {
  std::mt19937 random(kRowCount);
  std::size_t next = 0;
  for (int i = 0; i < kRowCount; ++i) {
    const auto place = static_cast<std::size_t>(i);
    const bool isDue = next < used.size() && place * used.size() / kRowCount >= next;
    rows[i] = isDue ? used[next++] : PaddingRow(names[place], i, random, used);
  }
}

APPobject0* BuildingSchema() {
  static const PaddedRows padded(kUsedRows);
  static APPtable schema("IFC2X3", padded.rows);
  return &schema;
}

}  // namespace bench
