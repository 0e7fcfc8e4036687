// A file that takes the place of another one when it is whole.
#ifndef STEPRT_PLATFORM_POSIX_REPLACEMENT_H
#define STEPRT_PLATFORM_POSIX_REPLACEMENT_H

#include <climits>
#include <string_view>

namespace steprt {

struct Replacement {
  Replacement() = default;
  ~Replacement();  // removes a file that has not taken the place
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  // Creates the file beside the one of that name. Returns its handle; a negative number if that fails or if another
  // writer has that name's file. If that one is no regular file, returns a handle of it, and Commit does nothing.
  int Create(const char* name);

  // Takes the place. Returns false if that fails.
  [[nodiscard]] bool Commit();

 private:
  bool SetTarget(std::string_view path);
  bool FollowLinks(const char* name);
  int OpenTarget();
  int CreateBeside();

  char target_[PATH_MAX];
  char temporary_[PATH_MAX] = "";  // empty: there is none
  int lock_ = -1;                  // of the file whose place is taken; negative: there is none
};

}  // namespace steprt

#endif
