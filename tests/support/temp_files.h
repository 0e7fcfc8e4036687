// Files of one run, in a folder of its own below TMPDIR or /tmp. The folder is removed when the program ends.
#ifndef STEPRT_TESTS_SUPPORT_TEMP_FILES_H
#define STEPRT_TESTS_SUPPORT_TEMP_FILES_H

#include <string>

namespace steprt_test {

std::string TempPath(const std::string& name);

// Makes or replaces a file in the folder and returns its path.
std::string MakeFile(const std::string& name, const std::string& bytes);

// A file's bytes; "(none)" when there is no such file.
std::string BytesOf(const std::string& path);

// The bytes of a file that the library wrote, with its path as "<path>" and the date of its head as "<date>".
std::string MaskedBytesOf(const std::string& path);

// The handle that the next file opened gets: a higher one than before says that a file was left open.
int NextHandle();

}  // namespace steprt_test

#endif
