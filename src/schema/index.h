// The optional hash index of a schema chain: one table of 128 buckets for names and for types, with the tree of
// subtypes on the nodes that the names find.
#ifndef STEPRT_SCHEMA_INDEX_H
#define STEPRT_SCHEMA_INDEX_H

#include "steprt/schema.h"

namespace steprt {

inline constexpr int kIndexBuckets = 128;

// 0 to 127. Letters are not folded: a name in another case usually hashes elsewhere.
int HashName(const char* name);
inline int TypeBucket(int type) { return type & (kIndexBuckets - 1); }

// Pushes a node in front of the bucket; null, without a change, when memory is exhausted.
APPindexNode* AddIndexNode(APPindexNode** bucket, APPentity* row);

// The first node of the name's bucket whose row bears the name, in any case; null if none. FindIndexRow gives its row.
APPindexNode* FindIndexNode(const char* name, APPindexNode** table);
APPentity* FindIndexRow(const char* name, APPindexNode** table);

// The row of the first node of the type's bucket whose row has the type; null if none.
APPentity* FindIndexType(int type, APPindexNode** table);

}  // namespace steprt

#endif
