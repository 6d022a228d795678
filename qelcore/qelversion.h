// The library's version. Modules record the version they were built against
// (qelVersion, see qelcore/qcs/cmodulesections.h); the build reads the
// project version from here.
#ifndef QELCORE_QELVERSION_H
#define QELCORE_QELVERSION_H

#define QELCORE_VERSION_MAJOR 0
#define QELCORE_VERSION_MINOR 1
#define QELCORE_VERSION_PATCH 0

#endif
