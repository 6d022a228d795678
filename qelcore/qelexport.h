/// \file
/// Symbol export of the shared library. Only classes and functions marked with
/// QEL_EXPORT are visible outside the library; everything else stays hidden.
#ifndef QELCORE_QELEXPORT_H
#define QELCORE_QELEXPORT_H

#if defined(_WIN32)
#if defined(QELCORE_BUILDING_LIBRARY)
#define QEL_EXPORT __declspec(dllexport)
#else
#define QEL_EXPORT __declspec(dllimport)
#endif
#else
/// Makes a class or function visible outside the shared library (exported
/// when the library is built, imported by its users on Windows).
#define QEL_EXPORT __attribute__((visibility("default")))
#endif

#endif
