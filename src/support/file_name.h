// File names as a file's header and the opening of a file need them.
#ifndef STEPRT_SUPPORT_FILE_NAME_H
#define STEPRT_SUPPORT_FILE_NAME_H

#include "support/text_buffer.h"

namespace steprt {

// `name` itself when what stands behind its last backslash (or the whole of it) has a dot, else `room`, filled with
// `name` and ".stp". A slash is no separator. Null when memory is exhausted: a name that is cut is another file's.
const char* DefaultFileName(TextBuffer& room, const char* name);

// `name` with every apostrophe doubled, in `room`. Null when memory is exhausted: a name cut between two apostrophes
// would leave the text about it open.
const char* QuoteFileName(TextBuffer& room, const char* name);

// `name` as an XML comment may hold it, in `room`: a `-` with another one behind it becomes `_`. Null when memory is
// exhausted.
const char* CommentFileName(TextBuffer& room, const char* name);

}  // namespace steprt

#endif
