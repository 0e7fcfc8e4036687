// The optional hash index of a schema chain. One table of 128 buckets serves names and types. The nodes that names find
// also form the tree of subtypes.
#ifndef STEPRT_SCHEMA_INDEX_H
#define STEPRT_SCHEMA_INDEX_H

#include "steprt/schema.h"

namespace steprt {

inline constexpr int kIndexBuckets = 128;

// Returns 0 to 127. Letters are not folded, so a name in another case usually has another hash. That is intended:
// FindIndexNode compares case-insensitively, but within one bucket only.
int HashName(const char* name);
inline int TypeBucket(int type) { return type & (kIndexBuckets - 1); }

// Adds a node at the start of the bucket. Returns null, and changes nothing, when memory runs out.
APPindexNode* AddIndexNode(APPindexNode** bucket, APPentity* row);

// The first node of the name's bucket whose row has that name, compared case-insensitively; null if there is none.
// FindIndexRow returns its row.
APPindexNode* FindIndexNode(const char* name, APPindexNode** table);
APPentity* FindIndexRow(const char* name, APPindexNode** table);

// The row of the first node of the type's bucket whose row has the type; null if there is none.
APPentity* FindIndexType(int type, APPindexNode** table);

}  // namespace steprt

#endif
