// The small files of the golden cases, as bytes: what is read in pieces, cut and mutated.
#ifndef STEPRT_TESTS_SUPPORT_GOLDEN_FILES_H
#define STEPRT_TESTS_SUPPORT_GOLDEN_FILES_H

#include <filesystem>
#include <string>
#include <vector>

namespace steprt_test {

enum class Form { kClearText, kXml };

struct GoldenFile {
  std::filesystem::path path;
  Form form;
  std::string bytes;
};

// What each case reads, in the order of their names; without an XML service no documents.
std::vector<GoldenFile> GoldenInputs();

// These of one form, with what the cases "sound" and "faulty" write.
std::vector<GoldenFile> GoldenFiles(Form form);

}  // namespace steprt_test

#endif
