// File names as they are opened, and as they are written into a file.
//
// Each operation builds its text in `buffer` and returns null when memory runs out for it, because a name that is cut
// is worse than none.
#ifndef STEPRT_SUPPORT_FILE_NAME_H
#define STEPRT_SUPPORT_FILE_NAME_H

#include "support/text_buffer.h"

namespace steprt {

// Adds ".stp" to a name without an extension. A name with a dot after its last backslash (or anywhere, if it has no
// backslash) is returned itself. A slash is no separator. A cut name would be that of another file.
const char* DefaultFileName(TextBuffer& buffer, const char* name);

// Doubles every apostrophe. A name cut between two apostrophes would leave the text around it open.
const char* QuoteFileName(TextBuffer& buffer, const char* name);

// The name as an XML comment may hold it: a `-` followed by another one becomes `_`.
const char* CommentFileName(TextBuffer& buffer, const char* name);

}  // namespace steprt

#endif
