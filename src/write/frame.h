// The pieces of which both forms make the head and the tail of a file.
#ifndef STEPRT_WRITE_FRAME_H
#define STEPRT_WRITE_FRAME_H

#include <initializer_list>
#include <string_view>

#include "read/transfer/record.h"

namespace steprt {

void Put(STEPtransfer* t, std::initializer_list<std::string_view> pieces);

// Write FILE_DESCRIPTION(...); and FILE_NAME(...); as in clear text, without a line end. Both texts are written
// unchanged: the form must have spelled `shownName` so that it cannot end the record.
void PutFileDescription(STEPtransfer* t, const char* remark);
void PutFileName(STEPtransfer* t, const char* shownName);

// Ends the file with the tail. After a write that failed, the tail follows the last whole record for which there is
// space.
void EndFile(STEPtransfer* t, std::initializer_list<std::string_view> tail);

}  // namespace steprt

#endif
