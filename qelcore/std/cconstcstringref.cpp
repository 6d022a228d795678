#include "qelcore/std/cconstcstringref.h"

#include <cstring>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qstd {

cConstCStringRef::cConstCStringRef(const char* text)
    : mpCStyleStringRef(text), miLength(text == nullptr ? 0 : static_cast<unsigned int>(std::strlen(text))) {}

cConstCStringRef::cConstCStringRef(const cAsciiString& text) : mpCStyleStringRef(text.c_str()), miLength(text.size()) {}

const char* cConstCStringRef::c_str() const {
  QEL_ASSERT(mpCStyleStringRef != 0, "std/cconstcstringref");
  return mpCStyleStringRef;
}

char cConstCStringRef::at(unsigned int i) const {
  QEL_ASSERT(mpCStyleStringRef != 0, "std/cconstcstringref");
  QEL_ASSERT(i < miLength, "std/cconstcstringref");
  return mpCStyleStringRef[i];
}

bool cConstCStringRef::operator==(const cConstCStringRef& other) const {
  return miLength == other.miLength && (miLength == 0 || std::memcmp(c_str(), other.c_str(), miLength) == 0);
}

}  // namespace qstd
