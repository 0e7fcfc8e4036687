// The numbers of the instances in a written file.
//
// An instance gets its number when the file first needs one: for its record, or for a reference to it. So a number may
// precede the record that has it, and numbers need not ascend.
#ifndef STEPRT_WRITE_NUMBERING_H
#define STEPRT_WRITE_NUMBERING_H

#include "read/transfer/record.h"
#include "steprt/instance.h"

namespace steprt {

// Returns the instance's number in this file, and assigns it at the first use.
inline int InstanceNumber(STEPtransfer* t, STEPheader* object) {
  if (object->number == 0) object->number = ++t->lastNumber;
  return object->number;
}

// Removes the numbers of an earlier file from a whole chain. An instance outside of the chain keeps its number.
inline void ClearNumbers(STEPheader* first) {
  for (; first; first = first->next) first->number = 0;
}

}  // namespace steprt

#endif
