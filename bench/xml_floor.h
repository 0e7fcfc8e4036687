// The floors of the XML form: what Expat alone takes for a document, and a program that prints the document of a
// population of this folder and nothing else.
#ifndef STEPRT_BENCH_XML_FLOOR_H
#define STEPRT_BENCH_XML_FLOOR_H

#include <cstddef>
#include <memory>
#include <string>

class STEPheader;

namespace bench {

// Parses the file block by block with handlers that do nothing. Returns the number of elements, 0 for a bad document.
// Expat goes over an unfinished tag again with each block, so a document of huge tags wants one block for all.
long ParseXmlFloor(const std::string& path, int blockSize = 1 << 16);
bool ParseAtOnce(const std::string& path);

class XmlWriteFloor {
 public:
  // Room for a document of `bytes`. It is there before the time is taken, and used by every write anew.
  explicit XmlWriteFloor(std::size_t bytes);

  // Formats the chain into the one buffer and writes it with one call.
  void Write(const std::string& path, STEPheader* first);

 private:
  std::unique_ptr<char[]> room_;
};

}  // namespace bench

#endif
