/// @file
/// A schema, as a table.
///
/// The library contains no schema. A client passes it a descriptor: one row for each entity with its keyword, the
/// functions that read and write its attributes, its type number and the keyword of its one supertype.
///
///     constexpr APPentity kRows[] = {
///         {"PRODUCT", nullptr, nullptr, 1, nullptr},
///         {"WALL", ReadWall, WriteWall, 2, "PRODUCT"},
///     };
///     APPtable plant("PLANT", kRows);   // &plant is the descriptor
///
/// The client owns its descriptors. They must outlive every model and every transfer that uses them. Of their fields,
/// the library writes `index`, `lib` and `next`, no other. One thread at a time uses the library: two descriptors on
/// two threads are not independent.
#ifndef STEPRT_SCHEMA_H
#define STEPRT_SCHEMA_H

#include <steprt/export.h>
#include <steprt/fwd.h>

/// Receives one complete report without a line end, such as "STEP error: a.stp (12) [WALL]Missing integer": the file,
/// the line, the entity or operation, and the message. A message of the XML parser comes alone. The text is valid
/// during the call only. The procedure must not destroy or move an instance while a transfer runs.
using STEPerrorProc = void (*)(const char* text);

/// Creates one instance with `new` and reads its attributes by the readers of read.h, supertype attributes first.
///
/// One function serves clear text and XML. The record's `(` has been read; the function must not read the `)`. It must
/// set the instance's type to that of the row, and must not destroy instances that the file created before. It may
/// return null: the record's number then denotes no instance.
///
/// An instance that is created without a model joins the current model, which STEPmodel::Read has set. A function that
/// creates a model of its own for scratch work must restore CurrentModel afterwards: STEPmodel(int) replaces it.
using STEPreadFunc = STEPheader* (*)(STEPtransfer* transfer);

/// Writes the attributes of one instance by the writers of write.h, in the order in which they are read. It must
/// neither destroy the instance nor move it to another place or model.
using STEPwriteFunc = void (*)(STEPtransfer* transfer, STEPheader* object);

/// One row of a descriptor: one entity.
struct APPentity {
  /// The keyword, matched case-insensitively without an index. Null ends the table. A keyword of more than 63
  /// characters is not found in XML, and one of more than 256 not in clear text.
  const char* name;
  STEPreadFunc read;    ///< Null: a record of this entity is a syntax error in clear text and is ignored in XML.
  STEPwriteFunc write;  ///< Null: instances of this entity are left out of a written file.
  int type;             ///< The type number, 0 or greater. Choose one range for each schema of a chain.
  /// The keyword of the supertype, which may be in another descriptor of the chain; null for a root. Supertypes must
  /// not form a ring.
  const char* super;
};

/// One node of the index that STEPmodel::PrepareHash builds. A row has a node for its name and another for its type.
struct APPindexNode {
  APPindexNode* next;      ///< The next node of the bucket.
  APPindexNode* children;  ///< The node of the first subtype.
  APPindexNode* sibling;   ///< The node of the next subtype of the same supertype.
  APPentity* row;          ///< The row itself, not a copy.
};

/// A descriptor. APPtable creates one. A client may also use its own structure that starts with these fields, as long
/// as further rows follow immediately.
struct APPobject0 {
  APPobject0* next;         ///< The next descriptor of the chain. A chain is one schema for every lookup.
  const char* name;         ///< The schema's name, which files contain. Null counts as empty.
  STEPerrorProc errorProc;  ///< Receives the reports. The first one of the chain that is not null is used.
  STEPlib* lib;             ///< A library, or null; see STEPmodel::SetLib.
  APPindexNode** index;     ///< 128 buckets, or null. Only the index of a chain's first descriptor is used.
  APPentity entities[1];    ///< The rows. The table has as many as it needs; one with a null name ends it.
};

/// A descriptor that is built from an array of rows.
///
/// The rows are copied, but not the texts that they point at. If the array is `constexpr`, a table at namespace scope
/// is complete before any code runs; `constinit` (C++20) makes the compiler check that. If it is only `const`, the
/// table is built when its source file is initialised, and must not be used before.
template <int N>
struct APPtable : APPobject0 {
  /// @param schemaName  the schema's name, not copied
  /// @param rows        the rows, without one that ends them
  /// @param proc        the error procedure. If no descriptor of the chain has one, reports go to standard error
  constexpr APPtable(const char* schemaName, const APPentity (&rows)[N], STEPerrorProc proc = nullptr)
      : APPobject0{nullptr, schemaName, proc, nullptr, nullptr, {rows[0]}}, more{} {
    for (int i = 1; i < N; ++i) more[i - 1] = rows[i];
  }
  // A model knows its table by the address.
  APPtable(const APPtable&) = delete;
  APPtable& operator=(const APPtable&) = delete;

  APPentity more[N];  ///< The rows after the first, and the empty one that ends them.
};
/// @cond
template <int N>
APPtable(const char*, const APPentity (&)[N]) -> APPtable<N>;
template <int N>
APPtable(const char*, const APPentity (&)[N], STEPerrorProc) -> APPtable<N>;
/// @endcond

extern "C" {

/// Stores `type` and its subtypes in `out`, depth first. Returns how many it has stored.
///
/// The type itself is the first. Returns 0 for a type without a row, for a null schema and for a capacity of 0 or
/// below. Without an index, the subtypes of one parent are in row order along the chain; with an index, in the reverse
/// order.
///
/// @param schema    the first descriptor of a chain
/// @param type      a type number
/// @param out       a buffer for `capacity` type numbers
/// @param capacity  the size of the buffer. Types that do not fit are silently dropped
/// @param depth     0 or below: only the type; 1: its direct subtypes too; 2: also theirs; and so on
STEPRT_API int ExtractTypes(APPobject0* schema, int type, int* out, int capacity, int depth);

}  // extern "C"

#endif
