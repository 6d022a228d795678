#include "qelcore/sa/cserializebinaryshared.h"

namespace qsa {

const char* cSerializeBinaryShared::idToString(PrivatedTypeIDs id) {
  // The type-string serializer and the reference frame use the same names.
  static const char* const sNames[] = {"invalid",      "rawBytes", "piUChar",  "piChar",  "piUInt32",
                                       "piInt32",      "piUInt64", "piInt64",  "piBool",  "piDouble",
                                       "cAsciiString", "cString",  "context",  "label",   "rawBytes64",
                                       "context64",    "cString",  "piUInt16", "piInt16", "invalid"};
  const unsigned int i = static_cast<unsigned int>(id);
  return i < sizeof(sNames) / sizeof(sNames[0]) ? sNames[i] : "unknown type";
}

}  // namespace qsa
