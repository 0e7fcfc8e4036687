// Shows a text to the user and returns when that is done.
#ifndef STEPRT_PLATFORM_MESSAGE_BOX_H
#define STEPRT_PLATFORM_MESSAGE_BOX_H

namespace steprt {

// `caption` may be empty.
void ShowMessage(const char* caption, const char* text);

}  // namespace steprt

#endif
