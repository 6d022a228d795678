/// \file
/// Hints on where code goes, for the few hot paths that need them: forced
/// inlining of a step into its caller, and keeping a rare path out of line
/// (and, for cold ones, away from the hot code). Compilers without these
/// attributes get plain functions.
#ifndef QELCORE_QELINLINE_H
#define QELCORE_QELINLINE_H

#if defined(__GNUC__) || defined(__clang__)
#define QEL_ALWAYS_INLINE __attribute__((always_inline)) inline
#define QEL_NOINLINE __attribute__((noinline))
#define QEL_COLD __attribute__((noinline, cold))
#else
/// An inline function that is always compiled into its callers.
#define QEL_ALWAYS_INLINE inline
/// A function that is never compiled into its callers.
#define QEL_NOINLINE
/// A rarely run function: never inlined, placed away from the hot code.
#define QEL_COLD
#endif

#endif
