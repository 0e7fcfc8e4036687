// Pieces that the frames of both file forms are made of.
#ifndef STEPRT_WRITE_FRAME_H
#define STEPRT_WRITE_FRAME_H

#include <initializer_list>
#include <string_view>

#include "read/transfer/record.h"

namespace steprt {

void Put(STEPtransfer* t, std::initializer_list<std::string_view> pieces);

// FILE_DESCRIPTION(...); and FILE_NAME(...); as clear text has them, without a line end. `shownName` is the file name
// in the form's own spelling.
void PutFileDescription(STEPtransfer* t, const char* remark);
void PutFileName(STEPtransfer* t, const char* shownName);

}  // namespace steprt

#endif
