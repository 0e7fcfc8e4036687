// Builds the list of an aggregate attribute, node by node, in the order of the file and for both forms.
#ifndef STEPRT_READ_LIST_APPENDER_H
#define STEPRT_READ_LIST_APPENDER_H

#include "read/transfer/record.h"

namespace steprt {

// A null STEPaggr or STEPlist when memory is exhausted.
STEPaggr* NewAggr();
STEPlist* NewListNode();

class ListAppender {
 public:
  // `out` may be null: the items are then read and dropped.
  ListAppender(STEPtransfer* t, STEPaggr** out) : t_(t), out_(out) {}

  // Sees to it that *out holds an aggregate. False, with a report, when memory is exhausted. Links start at its head:
  // the first item takes the place of nodes that were there.
  [[nodiscard]] bool Begin();

  // Each makes one node and links it. Without memory the item is reported and lost.
  void AddReal(double real);
  void AddInteger(int integer);
  void AddNull();
  void AddText(const char* text);               // copied; a text that cannot be copied is lost without a report
  void AddReference(int number, int expected);  // a number that stands for no instance is reported and left out

 private:
  STEPlist* MakeNode();
  void Link(STEPlist* node);

  STEPtransfer* const t_;
  STEPaggr** const out_;
  STEPlist** tail_ = nullptr;
};

}  // namespace steprt

#endif
