// The program of the tests. With --host=TRAITS they run in a host of these traits (see host.h), which must change
// nothing.
#include <gmock/gmock.h>

#include <cstdio>
#include <cstring>

#include "host/host.h"

int main(int argc, char** argv) {
  constexpr char kOption[] = "--host=";
  testing::InitGoogleMock(&argc, argv);
  for (int i = 1; i < argc; ++i) {
    const bool isHost = std::strncmp(argv[i], kOption, std::strlen(kOption)) == 0;
    if (!isHost) std::fprintf(stderr, "unknown argument %s\n", argv[i]);
    if (!isHost || !steprt_test::UseHost(argv[i] + std::strlen(kOption))) return 2;
  }
  return RUN_ALL_TESTS();
}
