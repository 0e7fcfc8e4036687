// The front end as a whole: from texts to a model.
#ifndef STEPRT_EXPRESS_LOAD_H
#define STEPRT_EXPRESS_LOAD_H

#include <memory>
#include <string>
#include <vector>

#include "diagnostic.h"
#include "limits.h"
#include "schema.h"

namespace express {

// Reads a file, or returns null after a report.
std::unique_ptr<Source> ReadSource(const std::string& path, Diagnostics& diagnostics);

// Parses all sources and resolves them together, so that their order does not matter. Never returns null. Whatever was
// wrong is in `diagnostics`; only while it holds no error may the model be relied on. Time and memory are linear in the
// length of the texts, within `limits`.
std::unique_ptr<Model> Load(std::vector<std::unique_ptr<Source>> sources, Diagnostics& diagnostics,
                            const Limits& limits = {});

}  // namespace express

#endif
