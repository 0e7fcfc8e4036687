// The driver of a write, for both forms: from the creation of the file to the count of its records.
#ifndef STEPRT_WRITE_DRIVER_H
#define STEPRT_WRITE_DRIVER_H

#include "steprt/instance.h"
#include "write/file_form.h"

namespace steprt {

// Writes a file of this form: its head, a record for each instance of the chain, and its tail. Arguments and result are
// those of STEPwrite. A file whose records fail gets its tail all the same.
int WriteFile(const FileForm& form, const char* fileName, const char* remark, STEPheader* first, APPobject0* schema);

}  // namespace steprt

#endif
