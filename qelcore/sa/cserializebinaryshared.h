// What the binary writer and reader share: the element type ids and their names.
#ifndef QELCORE_SA_CSERIALIZEBINARYSHARED_H
#define QELCORE_SA_CSERIALIZEBINARYSHARED_H

#include "qelcore/qelexport.h"

namespace qsa {

class QEL_EXPORT cSerializeBinaryShared {
public:
  // Every element starts with one of these as a 4-byte little-endian number.
  enum PrivatedTypeIDs : unsigned int {
    idInvalid = 0,
    idRawBytes = 1,
    idUChar = 2,
    idChar = 3,
    idUInt32 = 4,
    idInt32 = 5,
    idUInt64 = 6,
    idInt64 = 7,
    idBool = 8,
    idDouble = 9,
    idAsciiString = 10,
    idString = 11,
    idContext = 12,
    idLabel = 13,
    idRawBytes64 = 14,
    idContext64 = 15,
    idStringUTF8 = 16,
    idUInt16 = 17,
    idInt16 = 18,
    idInvalidLast = 19
  };

  // "unknown type" for ids past the table.
  static const char* idToString(PrivatedTypeIDs id);
  static const char* idToString(unsigned int id) { return idToString(static_cast<PrivatedTypeIDs>(id)); }
};

}  // namespace qsa

#endif
