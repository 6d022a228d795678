#include "qelcore/sa/cserializetotypestring.h"

#include "qelcore/sa/cserializebinaryshared.h"
#include "qelcore/std/cstdexceptions.h"

namespace qsa {

namespace {

const char* nameOf(cSerializeBinaryShared::PrivatedTypeIDs id) { return cSerializeBinaryShared::idToString(id); }

}  // namespace

cSerializeToTypeString::cSerializeToTypeString() {}

cSerializeToTypeString::~cSerializeToTypeString() {}

void cSerializeToTypeString::storeType(const char* pTypeName) {
  if (!mTypeString.empty()) mTypeString += ", ";
  mTypeString += pTypeName;
}

void cSerializeToTypeString::storeBlock(const char*, unsigned int) { storeType("char*"); }
void cSerializeToTypeString::store(const qucs::cString&) { storeType(nameOf(cSerializeBinaryShared::idString)); }
void cSerializeToTypeString::store(const qstd::cAsciiString&) {
  storeType(nameOf(cSerializeBinaryShared::idAsciiString));
}
void cSerializeToTypeString::store(double) { storeType(nameOf(cSerializeBinaryShared::idDouble)); }
void cSerializeToTypeString::store(bool) { storeType(nameOf(cSerializeBinaryShared::idBool)); }
void cSerializeToTypeString::store(long long) { storeType(nameOf(cSerializeBinaryShared::idInt64)); }
void cSerializeToTypeString::store(unsigned long long) { storeType(nameOf(cSerializeBinaryShared::idUInt64)); }
void cSerializeToTypeString::store(int) { storeType(nameOf(cSerializeBinaryShared::idInt32)); }
void cSerializeToTypeString::store(unsigned int) { storeType(nameOf(cSerializeBinaryShared::idUInt32)); }
void cSerializeToTypeString::store(short) { storeType(nameOf(cSerializeBinaryShared::idInt16)); }
void cSerializeToTypeString::store(unsigned short) { storeType(nameOf(cSerializeBinaryShared::idUInt16)); }
void cSerializeToTypeString::store(char) { storeType(nameOf(cSerializeBinaryShared::idChar)); }
void cSerializeToTypeString::store(unsigned char) { storeType(nameOf(cSerializeBinaryShared::idUChar)); }

void cSerializeToTypeString::rewind() { mTypeString.clear(); }

void cSerializeToTypeString::clear() { mTypeString.clear(); }

cContextRef cSerializeToTypeString::newContext(const char*) {
  qstd::cSTDExceptions::throwUnsupportedOperation(qstd::cAsciiString("cSerializeToTypeString::newContext(...)"));
}

void cSerializeToTypeString::releaseCurrentContext() {}

cAbstractSerializer& cSerializeToTypeString::newLabel(const qstd::cAsciiString&) { return *this; }

qstd::tArrayRef<char> cSerializeToTypeString::data() {
  qstd::cSTDExceptions::throwUnsupportedOperation(qstd::cAsciiString("cSerializeToTypeString::data()"));
}

void cSerializeToTypeString::swapData(qstd::tArray<char>& other) {
  qstd::tArray<char> bytes(mTypeString.size() ? mTypeString.c_str() : 0, mTypeString.size());
  other.swap(bytes);
  mTypeString.clear();
}

}  // namespace qsa
