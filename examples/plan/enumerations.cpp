#include "enumerations.h"

namespace plan {
namespace {

// In the order of the schema, with the omitted value in front.
const char* booleanOperators[] = {"$", ".UNION.", ".INTERSECTION.", ".DIFFERENCE."};
const char* changeActions[] = {"$",         ".NOCHANGE.",      ".MODIFIED.",       ".ADDED.",
                               ".DELETED.", ".MODIFIEDADDED.", ".MODIFIEDDELETED."};
const char* compositionTypes[] = {"$", ".COMPLEX.", ".ELEMENT.", ".PARTIAL."};
const char* doorConstructions[] = {
    "$",         ".ALUMINIUM.",   ".HIGH_GRADE_STEEL.", ".STEEL.", ".WOOD.", ".ALUMINIUM_WOOD.", ".ALUMINIUM_PLASTIC.",
    ".PLASTIC.", ".USERDEFINED.", ".NOTDEFINED."};
const char* doorOperations[] = {"$",
                                ".SINGLE_SWING_LEFT.",
                                ".SINGLE_SWING_RIGHT.",
                                ".DOUBLE_DOOR_SINGLE_SWING.",
                                ".DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_LEFT.",
                                ".DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_RIGHT.",
                                ".DOUBLE_SWING_LEFT.",
                                ".DOUBLE_SWING_RIGHT.",
                                ".DOUBLE_DOOR_DOUBLE_SWING.",
                                ".SLIDING_TO_LEFT.",
                                ".SLIDING_TO_RIGHT.",
                                ".DOUBLE_DOOR_SLIDING.",
                                ".FOLDING_TO_LEFT.",
                                ".FOLDING_TO_RIGHT.",
                                ".DOUBLE_DOOR_FOLDING.",
                                ".REVOLVING.",
                                ".ROLLINGUP.",
                                ".USERDEFINED.",
                                ".NOTDEFINED."};
const char* internalOrExternal[] = {"$", ".INTERNAL.", ".EXTERNAL.", ".NOTDEFINED."};
const char* profileTypes[] = {"$", ".CURVE.", ".AREA."};
const char* projections[] = {"$",
                             ".GRAPH_VIEW.",
                             ".SKETCH_VIEW.",
                             ".MODEL_VIEW.",
                             ".PLAN_VIEW.",
                             ".REFLECTED_PLAN_VIEW.",
                             ".SECTION_VIEW.",
                             ".ELEVATION_VIEW.",
                             ".USERDEFINED.",
                             ".NOTDEFINED."};
const char* siPrefixes[] = {"$",       ".EXA.",   ".PETA.", ".TERA.",  ".GIGA.",  ".MEGA.",
                            ".KILO.",  ".HECTO.", ".DECA.", ".DECI.",  ".CENTI.", ".MILLI.",
                            ".MICRO.", ".NANO.",  ".PICO.", ".FEMTO.", ".ATTO."};
const char* siUnitNames[] = {
    "$",        ".AMPERE.", ".BECQUEREL.", ".CANDELA.", ".COULOMB.",      ".CUBIC_METRE.", ".DEGREE_CELSIUS.",
    ".FARAD.",  ".GRAM.",   ".GRAY.",      ".HENRY.",   ".HERTZ.",        ".JOULE.",       ".KELVIN.",
    ".LUMEN.",  ".LUX.",    ".METRE.",     ".MOLE.",    ".NEWTON.",       ".OHM.",         ".PASCAL.",
    ".RADIAN.", ".SECOND.", ".SIEMENS.",   ".SIEVERT.", ".SQUARE_METRE.", ".STERADIAN.",   ".TESLA.",
    ".VOLT.",   ".WATT.",   ".WEBER."};
const char* slabTypes[] = {"$", ".FLOOR.", ".ROOF.", ".LANDING.", ".BASESLAB.", ".USERDEFINED.", ".NOTDEFINED."};
const char* stairTypes[] = {"$",
                            ".STRAIGHT_RUN_STAIR.",
                            ".TWO_STRAIGHT_RUN_STAIR.",
                            ".QUARTER_WINDING_STAIR.",
                            ".QUARTER_TURN_STAIR.",
                            ".HALF_WINDING_STAIR.",
                            ".HALF_TURN_STAIR.",
                            ".TWO_QUARTER_WINDING_STAIR.",
                            ".TWO_QUARTER_TURN_STAIR.",
                            ".THREE_QUARTER_WINDING_STAIR.",
                            ".THREE_QUARTER_TURN_STAIR.",
                            ".SPIRAL_STAIR.",
                            ".DOUBLE_RETURN_STAIR.",
                            ".CURVED_RUN_STAIR.",
                            ".TWO_CURVED_RUN_STAIR.",
                            ".USERDEFINED.",
                            ".NOTDEFINED."};
const char* states[] = {"$", ".READWRITE.", ".READONLY.", ".LOCKED.", ".READWRITELOCKED.", ".READONLYLOCKED."};
const char* unitTypes[] = {"$",
                           ".ABSORBEDDOSEUNIT.",
                           ".AMOUNTOFSUBSTANCEUNIT.",
                           ".AREAUNIT.",
                           ".DOSEEQUIVALENTUNIT.",
                           ".ELECTRICCAPACITANCEUNIT.",
                           ".ELECTRICCHARGEUNIT.",
                           ".ELECTRICCONDUCTANCEUNIT.",
                           ".ELECTRICCURRENTUNIT.",
                           ".ELECTRICRESISTANCEUNIT.",
                           ".ELECTRICVOLTAGEUNIT.",
                           ".ENERGYUNIT.",
                           ".FORCEUNIT.",
                           ".FREQUENCYUNIT.",
                           ".ILLUMINANCEUNIT.",
                           ".INDUCTANCEUNIT.",
                           ".LENGTHUNIT.",
                           ".LUMINOUSFLUXUNIT.",
                           ".LUMINOUSINTENSITYUNIT.",
                           ".MAGNETICFLUXDENSITYUNIT.",
                           ".MAGNETICFLUXUNIT.",
                           ".MASSUNIT.",
                           ".PLANEANGLEUNIT.",
                           ".POWERUNIT.",
                           ".PRESSUREUNIT.",
                           ".RADIOACTIVITYUNIT.",
                           ".SOLIDANGLEUNIT.",
                           ".THERMODYNAMICTEMPERATUREUNIT.",
                           ".TIMEUNIT.",
                           ".VOLUMEUNIT.",
                           ".USERDEFINED."};
const char* windowConstructions[] = {"$",           ".ALUMINIUM.",      ".HIGH_GRADE_STEEL.", ".STEEL.",
                                     ".WOOD.",      ".ALUMINIUM_WOOD.", ".PLASTIC.",          ".OTHER_CONSTRUCTION.",
                                     ".NOTDEFINED."};
const char* windowOperations[] = {"$",
                                  ".SINGLE_PANEL.",
                                  ".DOUBLE_PANEL_VERTICAL.",
                                  ".DOUBLE_PANEL_HORIZONTAL.",
                                  ".TRIPLE_PANEL_VERTICAL.",
                                  ".TRIPLE_PANEL_BOTTOM.",
                                  ".TRIPLE_PANEL_TOP.",
                                  ".TRIPLE_PANEL_LEFT.",
                                  ".TRIPLE_PANEL_RIGHT.",
                                  ".TRIPLE_PANEL_HORIZONTAL.",
                                  ".USERDEFINED.",
                                  ".NOTDEFINED."};
const char* derivedMark[] = {"*"};

template <int N>
constexpr Enumerators All(const char* (&names)[N]) {
  return {names, N};
}

}  // namespace

const Enumerators kBooleanOperators = All(booleanOperators);
const Enumerators kChangeActions = All(changeActions);
const Enumerators kCompositionTypes = All(compositionTypes);
const Enumerators kDoorConstructions = All(doorConstructions);
const Enumerators kDoorOperations = All(doorOperations);
const Enumerators kInternalOrExternal = All(internalOrExternal);
const Enumerators kProfileTypes = All(profileTypes);
const Enumerators kProjections = All(projections);
const Enumerators kSiPrefixes = All(siPrefixes);
const Enumerators kSiUnitNames = All(siUnitNames);
const Enumerators kSlabTypes = All(slabTypes);
const Enumerators kStairTypes = All(stairTypes);
const Enumerators kStates = All(states);
const Enumerators kUnitTypes = All(unitTypes);
const Enumerators kWindowConstructions = All(windowConstructions);
const Enumerators kWindowOperations = All(windowOperations);
const Enumerators kDerivedMark = All(derivedMark);

int PowerOfPrefix(int prefix) {
  static const int kPowers[] = {0, 18, 15, 12, 9, 6, 3, 2, 1, -1, -2, -3, -6, -9, -12, -15, -18};
  return kPowers[prefix];
}

}  // namespace plan
