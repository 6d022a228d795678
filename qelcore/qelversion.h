/// \file
/// The library's version. Modules record the version they were built against
/// (qelVersion, see qelcore/qcs/cmodulesections.h); the build reads the
/// project version from here.
#ifndef QELCORE_QELVERSION_H
#define QELCORE_QELVERSION_H

/// The major version: it names the shared library (libqelcore.so.0), and a
/// module built against another one loads with a warning.
#define QELCORE_VERSION_MAJOR 0
/// The minor version.
#define QELCORE_VERSION_MINOR 1
/// The patch level.
#define QELCORE_VERSION_PATCH 0

#endif
