// What the head of a file tells before a model is chosen for it.
#ifndef PLAN_FILE_SCHEMA_H
#define PLAN_FILE_SCHEMA_H

#include <string>

namespace plan {

// The schema that the head of a file names: in FILE_SCHEMA of clear text, or as the root of an XML document. Empty if
// the file cannot be opened or names none within its first 64 KiB.
std::string SchemaOf(const std::string& path);

// Whether the file is an XML document.
bool IsXml(const std::string& path);

}  // namespace plan

#endif
