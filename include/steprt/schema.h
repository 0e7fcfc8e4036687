// A schema, as a table.
//
// The library holds no schema. A client gives it a descriptor: one row for each entity, with the entity's keyword,
// the functions that read and write its attributes, its type number and the name of its one supertype.
//
//   static const APPentity kRows[] = {
//       {"PRODUCT", nullptr, nullptr, 1, nullptr},
//       {"WALL", ReadWall, WriteWall, 2, "PRODUCT"},
//   };
//   static APPtable plant("PLANT", kRows);   // &plant is the descriptor
//
// Descriptors are the client's and must outlive every model and transfer that uses them. The library writes three of
// their fields and no more: `index`, `lib` and `next`. One thread at a time uses a descriptor.
#ifndef STEPRT_SCHEMA_H
#define STEPRT_SCHEMA_H

#include <steprt/export.h>
#include <steprt/fwd.h>

// Receives one finished report, without a line end. The text lives for the call only.
using STEPerrorProc = void (*)(const char* text);

// Makes one instance and reads its attributes, in the order of the schema, through the readers of read.h and nothing
// else. On entry the record's `(` is behind; the function leaves its `)` alone. It sets the instance's type to that of
// the row. Null is a valid answer: the record's number then stands for no instance. An instance constructed without a
// model joins the current one. The same function serves clear text and XML.
using STEPreadFunc = STEPheader* (*)(STEPtransfer* transfer);

// Writes the attributes of one instance, in the order of the schema, through the writers of write.h and nothing else.
using STEPwriteFunc = void (*)(STEPtransfer* transfer, STEPheader* object);

// One row of a descriptor.
struct APPentity {
  const char* name;     // the keyword, in any case; null ends the table
  STEPreadFunc read;    // null: a record of this entity is a syntax error
  STEPwriteFunc write;  // null: its instances are left out of a written file
  int type;             // the type number, not negative
  const char* super;    // keyword of the one supertype, in this or another descriptor of the chain; null for a root
};

// One node of the index that STEPmodel::PrepareHash builds. Each row has two: one in the bucket of its name, one in
// the bucket of its type.
struct APPindexNode {
  APPindexNode* next;      // next node of the bucket
  APPindexNode* children;  // first subtype
  APPindexNode* sibling;   // next subtype of the same parent
  APPentity* row;          // the row it stands for, not copied
};

// A descriptor. `entities` has as many rows as the table needs; the row with a null name ends them. A client's own
// record with these fields, in this order, and its rows behind them serves as well.
struct APPobject0 {
  APPobject0* next;         // next descriptor of the chain; the chain counts as one schema
  const char* name;         // the schema's name
  STEPerrorProc errorProc;  // receives the reports; the first one along the chain that is not null is taken
  STEPlib* lib;             // the library that the schema came from, or null; see STEPmodel::SetLib
  APPindexNode** index;     // 128 buckets, or null; only that of a chain's first descriptor counts
  APPentity entities[1];    // the rows
};

// A descriptor made from an array of rows, without a cast; it adds the row that ends the table.
//
//   rows       copied; the texts they point at are not
//   errorProc  null: the first one further down the chain, or else the library's own, which writes to standard error
template <int N>
struct APPtable : APPobject0 {
  APPtable(const char* schemaName, const APPentity (&rows)[N], STEPerrorProc proc = nullptr)
      : APPobject0{nullptr, schemaName, proc, nullptr, nullptr, {rows[0]}}, more{} {
    for (int i = 1; i < N; ++i) more[i - 1] = rows[i];
  }
  // A table is known by its address.
  APPtable(const APPtable&) = delete;
  APPtable& operator=(const APPtable&) = delete;

  APPentity more[N];  // the rows behind the first, and the empty one that ends them
};
template <int N>
APPtable(const char*, const APPentity (&)[N]) -> APPtable<N>;
template <int N>
APPtable(const char*, const APPentity (&)[N], STEPerrorProc) -> APPtable<N>;

extern "C" {

// Lists `type` and its subtypes, depth first, into `out`.
//
//   schema    head of a chain; null gives 0
//   out       room for `capacity` type numbers
//   capacity  what does not fit is dropped, silently; 0 or below stores nothing
//   depth     0 or below: the type alone; 1: with its direct subtypes; 2: with theirs too, and so on
//
// Gives how many were stored: 0 for a type without a row, else at least the type itself, first. Without an index the
// subtypes of one parent stand in row order along the chain, with an index in the reverse order.
STEPRT_API int ExtractTypes(APPobject0* schema, int type, int* out, int capacity, int depth);

}  // extern "C"

#endif
