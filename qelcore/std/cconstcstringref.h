/// \class qstd::cConstCStringRef
/// A read-only view of a zero-terminated character array that it does not
/// own: a pointer and a length.
#ifndef QELCORE_STD_CCONSTCSTRINGREF_H
#define QELCORE_STD_CCONSTCSTRINGREF_H

#include "qelcore/qelexport.h"

namespace qstd {

class cAsciiString;

class QEL_EXPORT cConstCStringRef {
public:
  /// No text: every access is an assertion failure.
  cConstCStringRef() : mpCStyleStringRef(nullptr), miLength(0) {}
  /// The zero-terminated `text` (not copied).
  cConstCStringRef(const char* text);
  /// The `length` characters at `text` (not copied).
  cConstCStringRef(const char* text, unsigned int length) : mpCStyleStringRef(text), miLength(length) {}
  /// The characters of `text`, which must outlive the reference.
  cConstCStringRef(const cAsciiString& text);

  /// The text (asserts that there is one).
  const char* c_str() const;
  ///@{
  /// The number of characters.
  unsigned int length() const { return miLength; }
  unsigned int size() const { return miLength; }
  ///@}
  /// No characters.
  bool empty() const { return miLength == 0; }
  /// Whether there is a text at all.
  bool isSet() const { return mpCStyleStringRef != nullptr; }
  ///@{
  /// The character at `i` (checked).
  char at(unsigned int i) const;
  char operator[](unsigned int i) const { return at(i); }
  ///@}

  /// The same characters.
  bool operator==(const cConstCStringRef& other) const;
  /// Not operator==.
  bool operator!=(const cConstCStringRef& other) const { return !(*this == other); }

private:
  const char* mpCStyleStringRef;
  unsigned int miLength;
};

}  // namespace qstd

#endif
