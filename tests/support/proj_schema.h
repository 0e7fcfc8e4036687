// The schema of the tests, with one class for all its entities, and short ways to read and to look at a population.
//
//   PROJ (the head of the chain)             BASE
//     WALL    of PRODUCT, across the chain     PRODUCT  without a read function
//     DOOR    of WALL                          POINT
//     SAMPLE  every attribute kind once        PERSON
//     NOTE    without a write function
//     PROBE   what a test says
#ifndef STEPRT_TESTS_SUPPORT_PROJ_SCHEMA_H
#define STEPRT_TESTS_SUPPORT_PROJ_SCHEMA_H

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "steprt/step.h"
#include "support/reports.h"

namespace steprt_test {

enum { kProduct = 1, kPoint = 2, kPerson = 3, kWall = 11, kDoor = 12, kSample = 20, kNote = 21, kProbe = 30 };

inline const char* kColours[] = {".RED.", ".GREEN.", ".BLUE."};

// An attribute's kind says by which reader and which writer it goes:
//
//   t text  i int  r real  b bool  l logical  e colour  s select  f reference  a references  A those or `$`
//   p reals  E colours  T texts, and P N X the same three with a null `out`
struct Attribute {
  const char* name;
  char kind;
  int expected = -1;
};
using Shape = std::vector<Attribute>;

struct Value {
  std::string text;
  int integer = 0;
  double real = 0.0;
  STEPselect select;
  STEPheader* object = nullptr;
  STEPaggr* list = nullptr;
};

class Entity : public STEPheader {
 public:
  explicit Entity(int kind, STEPmodel* owner = nullptr);
  ~Entity() override;
  Entity(const Entity&) = delete;
  Entity& operator=(const Entity&) = delete;

  const Shape shape;
  const std::unique_ptr<Value[]> values;  // they stay where they are
};

// What PROBE does: its attributes by kind, named "A", "B" and so on; or, when they are set, what the functions do.
struct Probe {
  std::string kinds;
  int expected = -1;  // of its references
  std::function<STEPheader*(STEPtransfer*)> read{};
  std::function<void(STEPtransfer*)> write{};
};
void SetProbe(Probe probe);  // until the test ends

APPobject0* ProjSchema();
Shape ShapeOf(int type);

class ProjModel : public STEPmodel {
 public:
  explicit ProjModel(int errorLimit = 10);
  ~ProjModel() override;
  using STEPmodel::AddInst;
  using STEPmodel::RemoveHash;
};

// Values as they are printed.
std::string RealText(double real);
std::string Quoted(const std::string& text);

// Each instance in one line of its own, as "WALL('A',2.5,@2,[@3,null],[1,2.5],T)". A reference is the place of its
// instance in the model, counted from 1; one that nothing was stored in is "kept", in an entity PROBE. A list that was
// not made is "none". A complex instance is its parts in braces.
Texts Population(STEPmodel& model);

// Records with the rest of a clear-text file about them; the first line of `data` is line 1 of the file.
std::string InFrame(const std::string& data);

struct Outcome {
  int result;
  Texts reports;     // as TakeReports returns them
  Texts population;  // afterwards

  bool operator==(const Outcome&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

// Read as clear text and as nothing else, into a model that is current then, or into one of its own.
Outcome ReadBytes(STEPmodel& model, const std::string& bytes, bool check = false);
Outcome ReadBytes(const std::string& bytes, bool check = false);
Outcome ReadData(const std::string& data);  // InFrame

}  // namespace steprt_test

#endif
