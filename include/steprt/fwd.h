/// @file
/// The names of all public types. A header that only passes pointers on needs no other header of the library.
#ifndef STEPRT_FWD_H
#define STEPRT_FWD_H

struct APPobject0;        // a schema's descriptor           schema.h
struct APPentity;         // one row of a descriptor         schema.h
struct APPindexNode;      // a node of the schema's index    schema.h
struct STEPtransfer;      // one read or one write of one file; opaque to clients
class STEPheader;         // base class of every instance    instance.h
class STEPmodel;          // a population of instances       model.h
class STEPaggr;           // an aggregate                    aggregate.h
struct STEPlist;          // a node of an aggregate          aggregate.h
class STEPselect;         // the value of a SELECT           select.h
class STEPstring;         // a counted text                  text.h
class STEPlib;            // a loaded library                library.h
class STEPmodule;         // a link of the module chain      module.h
struct STEPentryTable;    // a module's numbered entries     module.h
class STEPcomplex;        // an instance of several entities  standard.h
struct STEPreadOptions;   // of a standard read              standard.h
struct STEPdiagnostic;    // a report of such a read         standard.h
class STEPtexts;          // a list of texts                 file_header.h
class STEPfileHeader;     // the header of a standard file   file_header.h
struct STEPwriteOptions;  // of a standard write             standard_write.h

#endif
