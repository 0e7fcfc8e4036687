// A limit to the size of files, as a full disk has.
#ifndef STEPRT_TESTS_SUPPORT_SIZE_LIMIT_H
#define STEPRT_TESTS_SUPPORT_SIZE_LIMIT_H

#include <sys/resource.h>

namespace steprt_test {

// No file of the process grows beyond it for its own life. Nothing may fail meanwhile: the words about it may go to a
// file as well.
class SizeLimit {
 public:
  explicit SizeLimit(rlim_t size) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit = {size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~SizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_;
};

}  // namespace steprt_test

#endif
