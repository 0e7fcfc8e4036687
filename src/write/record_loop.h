// The loop over a chain of instances that both file forms share.
#ifndef STEPRT_WRITE_RECORD_LOOP_H
#define STEPRT_WRITE_RECORD_LOOP_H

#include "read/transfer/record.h"

namespace steprt {

// How a form opens and closes the record of one instance.
struct RecordForm {
  void (*open)(STEPtransfer* t, const APPentity& row, int number);
  void (*close)(STEPtransfer* t, const APPentity& row);
};

// Writes a record for each instance whose type has a row with a write function. Gives their number, or -1 when the
// stream failed. A null `first` gives 0.
int WriteRecords(STEPtransfer* t, STEPheader* first, const RecordForm& form);

}  // namespace steprt

#endif
