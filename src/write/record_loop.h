// The records of a written file, in either form: one for each instance of a chain.
#ifndef STEPRT_WRITE_RECORD_LOOP_H
#define STEPRT_WRITE_RECORD_LOOP_H

#include "write/file_form.h"

namespace steprt {

inline constexpr int kWriteFailed = -1;

// Writes a record for each instance whose type has a row with a write function. Returns their count, or kWriteFailed if
// the stream failed. A null `first` returns 0.
int WriteRecords(STEPtransfer* t, const FileForm& form, STEPheader* first);

}  // namespace steprt

#endif
