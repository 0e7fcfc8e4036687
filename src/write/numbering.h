// The numbers of instances in the file being written.
#ifndef STEPRT_WRITE_NUMBERING_H
#define STEPRT_WRITE_NUMBERING_H

#include "read/transfer/record.h"
#include "steprt/instance.h"

namespace steprt {

// The instance's number in this file, given out at first need.
inline int InstanceNumber(STEPtransfer* t, STEPheader* object) {
  if (object->number == 0) object->number = ++t->lastNumber;
  return object->number;
}

// Takes the numbers of an earlier file from a whole chain.
inline void ClearNumbers(STEPheader* first) {
  for (; first; first = first->next) first->number = 0;
}

}  // namespace steprt

#endif
