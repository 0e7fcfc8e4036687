// The client of all targets: a schema of two chained descriptors whose entities own every kind of attribute.
//
//   ITEM            name, count                      second descriptor
//     SHADOW        the same; is not written         second
//     OUTLINE       the same; is not read            second
//     SCALARS       one attribute of each value
//     LINKS         references of three kinds, selects
//       LISTS       lists of five kinds
//   DROPPED         lists that are parsed and not kept; makes no instance
//   EMPTY           no attributes
//   STRAY           makes an instance of a type that has no row
#ifndef STEPRT_FUZZ_CLIENT_H
#define STEPRT_FUZZ_CLIENT_H

#include <steprt/step.h>

#include <string>

namespace fuzz {

enum Type {
  kItem = 1,
  kShadow = 2,
  kOutline = 3,
  kScalars = 10,
  kLinks = 11,
  kLists = 12,
  kDropped = 13,
  kEmpty = 14,
  kStrayRow = 15,
  kStray = 16  // of the instances that STRAY makes
};

// Where a population is to go and come back from unchanged.
enum class Form { kClearText, kXml };

class Thing : public STEPheader {
 public:
  virtual void Read(STEPtransfer* t) = 0;
  virtual void Write(STEPtransfer* t) = 0;
  // Replaces the values that the form, or any form, does not bring back as they are.
  virtual void Tame(Form form) = 0;
};

class Empty : public Thing {
 public:
  void Read(STEPtransfer* t) override;
  void Write(STEPtransfer* t) override;
  void Tame(Form form) override;
};

class Item : public Thing {
 public:
  void Read(STEPtransfer* t) override;
  void Write(STEPtransfer* t) override;
  void Tame(Form form) override;

 private:
  std::string name_;  // its beginning is the instance's id
  int count_ = 0;
};

class Scalars : public Item {
 public:
  void Read(STEPtransfer* t) override;
  void Write(STEPtransfer* t) override;
  void Tame(Form form) override;

 private:
  std::string text_;
  double real_ = 0.0;
  bool flag_ = false;
  int logical_ = -1;
  int colour_ = 0;
};

class Links : public Item {
 public:
  void Read(STEPtransfer* t) override;
  void Write(STEPtransfer* t) override;
  void Tame(Form form) override;

 private:
  STEPheader* item_ = nullptr;  // an ITEM or a subtype of it
  STEPheader* any_ = nullptr;
  STEPheader* exact_ = nullptr;  // an EMPTY, which has no subtypes
  STEPselect value_;
  STEPselect other_;
};

class Lists : public Links {
 public:
  ~Lists() override;
  void Read(STEPtransfer* t) override;
  void Write(STEPtransfer* t) override;
  void Tame(Form form) override;

 private:
  STEPaggr* members_ = nullptr;  // without null members
  STEPaggr* gaps_ = nullptr;     // with them
  STEPaggr* reals_ = nullptr;
  STEPaggr* colours_ = nullptr;
  STEPaggr* texts_ = nullptr;
};

class Model : public STEPmodel {
 public:
  explicit Model(const char* fileName = nullptr);

  void TameAll(Form form);

  // Ends the program unless the list, its end and the owners of its instances agree.
  void CheckSound();
  int CountInstances();
  int CountWritable();  // those that get a record
};

APPobject0* Schema();

// Whether an instance gets a record in a written file.
bool IsWritten(STEPheader* object);

}  // namespace fuzz

#endif
