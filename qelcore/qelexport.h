// Symbol export of the shared library. Only classes and functions marked with
// QEL_EXPORT are visible outside the library; everything else stays hidden.
#ifndef QELCORE_QELEXPORT_H
#define QELCORE_QELEXPORT_H

#if defined(_WIN32)
#if defined(QELCORE_BUILDING_LIBRARY)
#define QEL_EXPORT __declspec(dllexport)
#else
#define QEL_EXPORT __declspec(dllimport)
#endif
#else
#define QEL_EXPORT __attribute__((visibility("default")))
#endif

#endif
