// The record of a complex instance:
//
//   complex = "(" {NAME "(" attributes ")"} ")"
#ifndef STEPRT_READ_COMPLEX_H
#define STEPRT_READ_COMPLEX_H

#include "read/transfer/instance_table.h"
#include "steprt/standard.h"

namespace steprt {

// Reads the parts of a complex instance whose first `(` has been read. `entry` receives the instance. A token that does
// not belong there is reported and pushed back.
[[gnu::noinline]] void ReadComplex(STEPtransfer* t, STEPentry* entry);

// Reads a part in XML, whose values are ready, by its row. A part without a row keeps only its keyword.
void ReadPartValues(STEPtransfer* t, const APPentity* row, STEPcomplex* complex);

}  // namespace steprt

#endif
