// The primitive value types shared by archives and signals and slots.
//
// The names are what type strings and archive dumps show; the typedefs fix
// the widths whatever the platform: 32-bit int, 64-bit long long.
#ifndef QELCORE_SA_PITYPES_H
#define QELCORE_SA_PITYPES_H

#include "qelcore/qelexport.h"

namespace qsa {

class cAbstractSerializer;
class cAbstractDeserializer;

typedef bool piBool;
typedef char piChar;
typedef unsigned char piUChar;
typedef short piInt16;
typedef unsigned short piUInt16;
typedef int piInt32;
typedef unsigned int piUInt32;
typedef long long piInt64;
typedef unsigned long long piUInt64;
typedef double piDouble;

static_assert(sizeof(piInt16) == 2 && sizeof(piInt32) == 4 && sizeof(piInt64) == 8, "fixed widths");
static_assert(sizeof(piDouble) == 8, "IEEE double");

// The empty value: the return type of slots that return nothing. It archives
// as nothing at all, so a frame or a result list may hold it like any value.
class QEL_EXPORT piVoid {
public:
  bool operator==(const piVoid&) const { return true; }
  bool operator!=(const piVoid&) const { return false; }
  cAbstractSerializer& operator>>(cAbstractSerializer& s) const { return s; }
  cAbstractDeserializer& operator<<(cAbstractDeserializer& d) { return d; }
};

}  // namespace qsa

#endif
