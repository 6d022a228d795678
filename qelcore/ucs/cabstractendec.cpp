#include "qelcore/ucs/cabstractendec.h"

#include "qelcore/std/tconstmemoryproxy.h"
#include "qelcore/ucs/cstring.h"
#include "qelcore/ucs/cucsexceptions.h"

namespace qucs {

cAbstractEnDec::~cAbstractEnDec() {}

void cAbstractEnDec::encode(const cString&, qstd::tArray<unsigned short>&) const {
  cUCSExceptions::throwNotImplementedEncode16(name());
}

void cAbstractEnDec::encode(const cString&, qstd::tArray<char>&) const {
  cUCSExceptions::throwNotImplementedEncode8(name());
}

void cAbstractEnDec::reEncode(const cString&, cString&) const {}

void cAbstractEnDec::encodeCString(const cString& text, qstd::tArray<char>& out) const {
  encode(text, out);
  out.appendElements(4, '\0');
}

void cAbstractEnDec::decode(const qstd::tConstArrayRef<unsigned short>&, cString&) const {
  cUCSExceptions::throwNotImplementedDecode16(name());
}

void cAbstractEnDec::decode(const qstd::tConstArrayRef<char>&, cString&) const {
  cUCSExceptions::throwNotImplementedDecode8(name());
}

void cAbstractEnDec::reDecode(const cString&, cString&) const {}

void cAbstractEnDec::decode(const char* bytes, unsigned int length, cString& out) const {
  const qstd::tConstMemoryProxy<char> memory(bytes, length);
  decode(qstd::tConstArrayRef<char>(memory), out);
}

void cAbstractEnDec::decode(const unsigned short* units, unsigned int count, cString& out) const {
  const qstd::tConstMemoryProxy<unsigned short> memory(units, count);
  decode(qstd::tConstArrayRef<unsigned short>(memory), out);
}

}  // namespace qucs
