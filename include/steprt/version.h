/// @file
/// The version of steprt, for checks at compile time.
///
///     #if STEPRT_VERSION < 200   // before 0.2.0
///     #error "steprt 0.2 is needed"
///     #endif
///
/// Before 1.0 a minor version may break the interface. The text that files name as their writer is another one and
/// never changes: see STEPversion in write.h.
#ifndef STEPRT_VERSION_H
#define STEPRT_VERSION_H

#define STEPRT_VERSION_MAJOR 0  ///< Major version.
#define STEPRT_VERSION_MINOR 1  ///< Minor version.
#define STEPRT_VERSION_PATCH 0  ///< Patch version.

/// The whole version as one number: 10000 * major + 100 * minor + patch.
#define STEPRT_VERSION (STEPRT_VERSION_MAJOR * 10000 + STEPRT_VERSION_MINOR * 100 + STEPRT_VERSION_PATCH)

#endif
