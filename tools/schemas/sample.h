// Records in clear text that use a schema in full: each attribute of each entity has a value in one record, and each
// optional one is omitted in another.
#ifndef STEPRT_TOOLS_SAMPLE_H
#define STEPRT_TOOLS_SAMPLE_H

#include <string>
#include <vector>

#include "express/schema.h"

namespace steprt_tools {

// A whole file. Entities that cannot have instances have no records.
std::string SampleFile(const std::string& schemaName, const std::vector<const express::Entity*>& entities);

}  // namespace steprt_tools

#endif
