// The types of the client's schema, as a second and simpler account of what its descriptors say.
#ifndef STEPRT_FUZZ_TYPE_TABLE_H
#define STEPRT_FUZZ_TYPE_TABLE_H

#include <vector>

namespace fuzz {

// A type without a row has no name and no supertype.
const char* NameOf(int type);  // null for none
bool IsBelow(int ancestor, int type);

// The type and its subtypes down to `depth`, depth first, those of one parent in row order or, with an index, in the
// reverse order.
std::vector<int> TypesBelow(int type, int depth, bool indexed);

}  // namespace fuzz

#endif
