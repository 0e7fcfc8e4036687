// Builds the list of an aggregate attribute for both forms: one node for each item, in the order of the file.
#ifndef STEPRT_READ_LIST_APPENDER_H
#define STEPRT_READ_LIST_APPENDER_H

#include "read/transfer/record.h"

namespace steprt {

class ListAppender {
 public:
  // If `out` is null, the items are read and dropped.
  ListAppender(STEPtransfer* t, STEPaggr** out) : t_(t), out_(out) {}

  // Makes an aggregate in *out if there is none. Returns false, with a report, when memory runs out. The first item
  // becomes the head: an aggregate that has nodes loses them, and they leak.
  [[nodiscard]] bool Begin();

  // Each makes one node and links it. When memory runs out for the node, that is reported and the item is lost.
  void AppendReal(double real);
  void AppendInteger(int integer);
  void AppendNull();

  // Copies the text. When memory runs out for the copy, the item is lost without a report.
  void AppendText(const char* text);

  // A number without an instance is reported and left out. An instance of a wrong type is linked first and
  // reported then, so an error procedure that looks at the list sees it.
  void AppendReference(int number, int expected);

 private:
  STEPlist* MakeNode();
  void Link(STEPlist* node);

  STEPtransfer* const t_;
  STEPaggr** const out_;
  STEPlist** tail_ = nullptr;
};

}  // namespace steprt

#endif
