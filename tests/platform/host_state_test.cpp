// What the library does in a host whose standard streams are closed or buffered. Each case is a process of its own.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "platform/message_box.h"
#include "platform/posix/file_calls.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

bool IsOpen(int handle) { return fcntl(handle, F_GETFD) != -1; }

// Messages, and what the host prints, must never get into a file of the library's.
void OpenWithoutStreams(const std::string& path, unsigned closed) {
  for (int stream = 0; stream < 3; ++stream) {
    if (closed >> stream & 1) close(stream);
  }
  const int handle = steprt::OpenFile(path.c_str(), O_RDONLY | O_CLOEXEC);
  bool isGood = handle > 2 && (fcntl(handle, F_GETFD) & FD_CLOEXEC) != 0;
  for (int stream = 0; stream < 3; ++stream) isGood = isGood && IsOpen(stream) == ((closed >> stream & 1) == 0);
  std::_Exit(isGood ? 0 : 1);
}

TEST(HostState, AFileNeverTakesThePlaceOfAStandardStream) {
  const std::string path = MakeFile("any.txt", "");
  for (unsigned closed = 0; closed < 8; ++closed) {
    EXPECT_EXIT(OpenWithoutStreams(path, closed), testing::ExitedWithCode(0), "") << closed;
  }
}

void ShowWithoutFlushingLater(const char* caption) {
  static char buffer[4096];
  std::setvbuf(stderr, buffer, _IOFBF, sizeof buffer);
  steprt::ShowMessage(caption, "a text");
  std::_Exit(0);
}

TEST(HostState, AMessageIsSeenAtOnceThoughTheHostBuffersItsStream) {
  EXPECT_EXIT(ShowWithoutFlushingLater("A caption"), testing::ExitedWithCode(0), "^A caption: a text\n$");
  EXPECT_EXIT(ShowWithoutFlushingLater(""), testing::ExitedWithCode(0), "^a text\n$");
}

}  // namespace
