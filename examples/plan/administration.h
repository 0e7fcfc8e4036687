// Entities: who made the model, and its units.
#ifndef PLAN_ADMINISTRATION_H
#define PLAN_ADMINISTRATION_H

#include "attributes.h"
#include "enumerations.h"
#include "types.h"

namespace plan {

struct Person : Entity {
  static constexpr int kType = kIfcPerson;
  STEPstring identifier, familyName, givenName;
  TextList middleNames, prefixTitles, suffixTitles;
  RefList<Entity> roles, addresses;
  void Describe(Attributes& a) override {
    a.Text("Id", identifier);
    a.Text("FamilyName", familyName);
    a.Text("GivenName", givenName);
    a.Texts("MiddleNames", middleNames);
    a.Texts("PrefixTitles", prefixTitles);
    a.Texts("SuffixTitles", suffixTitles);
    a.References("Roles", roles);
    a.References("Addresses", addresses);
  }
};

struct Organization : Entity {
  static constexpr int kType = kIfcOrganization;
  STEPstring identifier, name, description;
  RefList<Entity> roles, addresses;
  void Describe(Attributes& a) override {
    a.Text("Id", identifier);
    a.Text("Name", name);
    a.Text("Description", description);
    a.References("Roles", roles);
    a.References("Addresses", addresses);
  }
};

struct PersonAndOrganization : Entity {
  static constexpr int kType = kIfcPersonAndOrganization;
  Ref<Person> person;
  Ref<Organization> organization;
  RefList<Entity> roles;
  void Describe(Attributes& a) override {
    a.Reference("ThePerson", person);
    a.Reference("TheOrganization", organization);
    a.References("Roles", roles);
  }
};

struct Application : Entity {
  static constexpr int kType = kIfcApplication;
  Ref<Organization> developer;
  STEPstring version, fullName, identifier;
  void Describe(Attributes& a) override {
    a.Reference("ApplicationDeveloper", developer);
    a.Text("Version", version);
    a.Text("ApplicationFullName", fullName);
    a.Text("ApplicationIdentifier", identifier);
  }
};

struct OwnerHistory : Entity {
  static constexpr int kType = kIfcOwnerHistory;
  Ref<PersonAndOrganization> owningUser, lastModifyingUser;
  Ref<Application> owningApplication, lastModifyingApplication;
  int state = 0, changeAction = 0, creationDate = 0;
  STEPselect lastModifiedDate;
  void Describe(Attributes& a) override {
    a.Reference("OwningUser", owningUser);
    a.Reference("OwningApplication", owningApplication);
    a.Enumeration("State", state, kStates);
    a.Enumeration("ChangeAction", changeAction, kChangeActions);
    a.Select("LastModifiedDate", lastModifiedDate);
    a.Reference("LastModifyingUser", lastModifyingUser);
    a.Reference("LastModifyingApplication", lastModifyingApplication);
    a.Integer("CreationDate", creationDate);
  }
};

struct DimensionalExponents : Entity {
  static constexpr int kType = kIfcDimensionalExponents;
  int length = 0, mass = 0, time = 0, current = 0, temperature = 0, substance = 0, luminosity = 0;
  void Describe(Attributes& a) override {
    a.Integer("LengthExponent", length);
    a.Integer("MassExponent", mass);
    a.Integer("TimeExponent", time);
    a.Integer("ElectricCurrentExponent", current);
    a.Integer("ThermodynamicTemperatureExponent", temperature);
    a.Integer("AmountOfSubstanceExponent", substance);
    a.Integer("LuminousIntensityExponent", luminosity);
  }
};

struct NamedUnit : Entity {
  static constexpr int kType = kIfcNamedUnit;
  int unitType = 0;
};

struct SiUnit : NamedUnit {
  static constexpr int kType = kIfcSIUnit;
  int prefix = 0, name = 0;
  void Describe(Attributes& a) override {
    a.Derived("Dimensions");
    a.Enumeration("UnitType", unitType, kUnitTypes);
    a.Enumeration("Prefix", prefix, kSiPrefixes);
    a.Enumeration("Name", name, kSiUnitNames);
  }
};

struct MeasureWithUnit : Entity {
  static constexpr int kType = kIfcMeasureWithUnit;
  STEPselect value;
  Ref<Entity> unit;
  void Describe(Attributes& a) override {
    a.Select("ValueComponent", value);
    a.Reference("UnitComponent", unit);
  }
};

struct ConversionBasedUnit : NamedUnit {
  static constexpr int kType = kIfcConversionBasedUnit;
  Ref<DimensionalExponents> dimensions;
  STEPstring name;
  Ref<MeasureWithUnit> factor;
  void Describe(Attributes& a) override {
    a.Reference("Dimensions", dimensions);
    a.Enumeration("UnitType", unitType, kUnitTypes);
    a.Text("Name", name);
    a.Reference("ConversionFactor", factor);
  }
};

struct UnitAssignment : Entity {
  static constexpr int kType = kIfcUnitAssignment;
  RefList<Entity> units;
  void Describe(Attributes& a) override { a.References("Units", units); }
};

}  // namespace plan

#endif
