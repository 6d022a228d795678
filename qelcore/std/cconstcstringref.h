// A read-only view of a zero-terminated character array that it does not
// own: a pointer and a length.
#ifndef QELCORE_STD_CCONSTCSTRINGREF_H
#define QELCORE_STD_CCONSTCSTRINGREF_H

#include "qelcore/qelexport.h"

namespace qstd {

class cAsciiString;

class QEL_EXPORT cConstCStringRef {
public:
  // No text: every access is an assertion failure.
  cConstCStringRef() : mpCStyleStringRef(nullptr), miLength(0) {}
  cConstCStringRef(const char* text);
  cConstCStringRef(const char* text, unsigned int length) : mpCStyleStringRef(text), miLength(length) {}
  cConstCStringRef(const cAsciiString& text);

  // The text (asserts that there is one).
  const char* c_str() const;
  unsigned int length() const { return miLength; }
  unsigned int size() const { return miLength; }
  bool empty() const { return miLength == 0; }
  bool isSet() const { return mpCStyleStringRef != nullptr; }
  char at(unsigned int i) const;
  char operator[](unsigned int i) const { return at(i); }

  bool operator==(const cConstCStringRef& other) const;
  bool operator!=(const cConstCStringRef& other) const { return !(*this == other); }

private:
  const char* mpCStyleStringRef;
  unsigned int miLength;
};

}  // namespace qstd

#endif
