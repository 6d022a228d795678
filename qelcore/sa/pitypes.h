/// \file
/// The primitive value types shared by archives and signals and slots.
///
/// The names are what type strings and archive dumps show; the typedefs fix
/// the widths whatever the platform: 32-bit int, 64-bit long long.
#ifndef QELCORE_SA_PITYPES_H
#define QELCORE_SA_PITYPES_H

#include "qelcore/qelexport.h"

namespace qsa {

class cAbstractSerializer;
class cAbstractDeserializer;

typedef bool piBool;                ///< a truth value
typedef char piChar;                ///< a byte, as a character
typedef unsigned char piUChar;      ///< a byte
typedef short piInt16;              ///< a 16-bit signed integer
typedef unsigned short piUInt16;    ///< a 16-bit unsigned integer
typedef int piInt32;                ///< a 32-bit signed integer
typedef unsigned int piUInt32;      ///< a 32-bit unsigned integer
typedef long long piInt64;          ///< a 64-bit signed integer
typedef unsigned long long piUInt64;  ///< a 64-bit unsigned integer
typedef double piDouble;            ///< an IEEE double

static_assert(sizeof(piInt16) == 2 && sizeof(piInt32) == 4 && sizeof(piInt64) == 8, "fixed widths");
static_assert(sizeof(piDouble) == 8, "IEEE double");

/// The empty value: the return type of slots that return nothing. It archives
/// as nothing at all, so a frame or a result list may hold it like any value.
class QEL_EXPORT piVoid {
public:
  /// All empty values are equal.
  bool operator==(const piVoid&) const { return true; }
  /// Never.
  bool operator!=(const piVoid&) const { return false; }
  /// Stores nothing.
  cAbstractSerializer& operator>>(cAbstractSerializer& s) const { return s; }
  /// Loads nothing.
  cAbstractDeserializer& operator<<(cAbstractDeserializer& d) { return d; }
};

}  // namespace qsa

#endif
