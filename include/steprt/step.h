/// @file
/// Includes the public headers of the library. Each of them can also be included alone. record.h, for classes that
/// describe their attributes, any_record.h, for records of unknown entities, and encoding.h, for texts in UTF-8, are
/// included by themselves.
#ifndef STEPRT_STEP_H
#define STEPRT_STEP_H

#include <steprt/aggregate.h>
#include <steprt/export.h>
#include <steprt/file_header.h>
#include <steprt/fwd.h>
#include <steprt/instance.h>
#include <steprt/items.h>
#include <steprt/library.h>
#include <steprt/model.h>
#include <steprt/module.h>
#include <steprt/read.h>
#include <steprt/schema.h>
#include <steprt/select.h>
#include <steprt/standard.h>
#include <steprt/standard_write.h>
#include <steprt/text.h>
#include <steprt/version.h>
#include <steprt/write.h>

#endif
