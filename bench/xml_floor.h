// The floors of the XML form: what Expat alone takes for a document, and a program that prints the document of a
// population of this folder and nothing else.
#ifndef STEPRT_BENCH_XML_FLOOR_H
#define STEPRT_BENCH_XML_FLOOR_H

#include <string>

class STEPheader;

namespace bench {

// Parses the file block by block with handlers that do nothing. Returns the number of elements, 0 for a bad document.
// Expat goes over an unfinished tag again with each block, so a document of huge tags wants one block for all.
long ParseXmlFloor(const std::string& path, int blockSize = 1 << 16);
bool ParseAtOnce(const std::string& path);

void XmlWriteFloor(const std::string& path, STEPheader* first);

}  // namespace bench

#endif
