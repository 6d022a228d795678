/// \class qstd::cAsciiString
/// The 8-bit string of the library: identifiers, type names, archive labels,
/// message keys. Always zero-terminated; user-visible text is cString instead.
#ifndef QELCORE_STD_CASCIISTRING_H
#define QELCORE_STD_CASCIISTRING_H

#include "qelcore/qelexport.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tarrayasciistringtraits.h"
#include "qelcore/std/tarraybyteleveltraits.h"
#include "qelcore/std/tconstarrayref.h"

namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qstd {

class cNumberConversionFormat;

class QEL_EXPORT cAsciiString : public tArray<char, tArrayAsciiStringTraits<char>> {
public:
  /// The array the string is made of.
  typedef tArray<char, tArrayAsciiStringTraits<char>> tBase;

  cAsciiString() {}
  ///@{
  /// Copies the zero-terminated `text`, `length` bytes of `text`, or another string (moving takes over its content).
  cAsciiString(const char* text);
  cAsciiString(const char* text, unsigned int length) : tBase(text, length) {}
  cAsciiString(const cAsciiString& other) : tBase(other) {}
  cAsciiString(cAsciiString&& other) noexcept : tBase(static_cast<tBase&&>(other)) {}
  ///@}
  /// The part of `other` from index `from` to the end.
  cAsciiString(const cAsciiString& other, unsigned int from);
  /// A copy of the array.
  cAsciiString(const tBase& other) : tBase(other) {}
  /// A copy of the bytes of a view.
  cAsciiString(const tConstArrayRef<char, tArrayByteLevelTraits<char>>& bytes);
  ~cAsciiString() override;

  ///@{
  /// Replace the content with a copy of the other (moving takes over its content).
  cAsciiString& operator=(const cAsciiString& other) {
    tBase::operator=(other);
    return *this;
  }
  cAsciiString& operator=(cAsciiString&& other) noexcept {
    tBase::operator=(static_cast<tBase&&>(other));
    return *this;
  }
  cAsciiString& operator=(const tBase& other) {
    tBase::operator=(other);
    return *this;
  }
  cAsciiString& operator=(const char* text);
  ///@}

  /// Never null, also for a string whose content was moved away.
  const char* c_str() const { return mpPoolOrEmpty(); }

  ///@{
  /// Append the other string, the zero-terminated text or the character.
  cAsciiString& operator+=(const cAsciiString& other) {
    append(other.data(true), other.size());
    return *this;
  }
  cAsciiString& operator+=(const char* text);
  cAsciiString& operator+=(char c) {
    append(c);
    return *this;
  }
  ///@}
  /// The same as +=.
  cAsciiString& addString(const cAsciiString& other) { return *this += other; }
  ///@{
  /// The concatenation, a new string.
  cAsciiString operator+(const cAsciiString& other) const;
  cAsciiString operator+(const char* text) const;
  ///@}

  ///@{
  /// Layout: each changes nothing when the string is already `width` long.
  /// leftAdjust left-aligns the text, so the fill goes to the right.
  cAsciiString& leftAdjust(unsigned int width, char fill = ' ');
  cAsciiString& rightAdjust(unsigned int width, char fill = ' ');
  ///@}
  /// Centred; an odd fill count puts the extra character behind.
  cAsciiString& adjust(unsigned int width, char fill = ' ');
  /// Exactly max(width, suffix length) long: a longer text is cut and ends in
  /// `suffix`, a shorter one is left-aligned with `fill`.
  cAsciiString& setFixedLength(unsigned int width, const cAsciiString& suffix, char fill = ' ');

  ///@{
  /// Only the blank (32) is trimmed; tabs and line ends stay.
  cAsciiString& ltrim();
  cAsciiString& rtrim();
  cAsciiString& trim();
  ///@}

  ///@{
  /// ASCII letters only; every other code passes unchanged.
  static char upperCase(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c; }
  static char lowerCase(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }
  static bool isPrintable(char c) { return c >= 32 && c <= 126; }
  cAsciiString& toUpper();
  cAsciiString& toLower();
  cAsciiString upperCase() const;
  cAsciiString lowerCase() const;
  ///@}

  ///@{
  /// Numbers, through cNumberConversion. The forms without a format use the
  /// system's default format.
  cAsciiString& setNum32(int value);
  cAsciiString& setNum32(int value, const cNumberConversionFormat& format);
  cAsciiString& setUNum32(unsigned int value);
  cAsciiString& setUNum32(unsigned int value, const cNumberConversionFormat& format);
  cAsciiString& setNum(long long value);
  cAsciiString& setNum(long long value, const cNumberConversionFormat& format);
  cAsciiString& setUNum(unsigned long long value);
  cAsciiString& setUNum(unsigned long long value, const cNumberConversionFormat& format);
  cAsciiString& setDouble(double value);
  cAsciiString& setDouble(double value, const cNumberConversionFormat& format);
  cAsciiString& addNum32(int value);
  cAsciiString& addNum32(int value, const cNumberConversionFormat& format);
  cAsciiString& addUNum32(unsigned int value);
  cAsciiString& addUNum32(unsigned int value, const cNumberConversionFormat& format);
  cAsciiString& addNum(long long value);
  cAsciiString& addNum(long long value, const cNumberConversionFormat& format);
  cAsciiString& addUNum(unsigned long long value);
  cAsciiString& addUNum(unsigned long long value, const cNumberConversionFormat& format);
  cAsciiString& addDouble(double value);
  cAsciiString& addDouble(double value, const cNumberConversionFormat& format);
  ///@}
  ///@{
  /// Parse the whole string; a bad character throws the invalid-decimal
  /// runtime exception, a value outside the type's range the number
  /// conversion exception (toUInt() takes 0 to 2^64 - 1).
  long long toInt() const;
  long long toInt(const cNumberConversionFormat& format) const;
  unsigned long long toUInt() const;
  unsigned long long toUInt(const cNumberConversionFormat& format) const;
  double toDouble() const;
  double toDouble(const cNumberConversionFormat& format) const;
  ///@}

  ///@{
  /// One string element of an archive.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& d);
  ///@}

  ///@{
  /// Named forms of the formatting, for expressions.
  static cAsciiString number(long long value);
  static cAsciiString number(unsigned long long value);
  static cAsciiString number(int value) { return number(static_cast<long long>(value)); }
  static cAsciiString number(unsigned int value) { return number(static_cast<unsigned long long>(value)); }
  ///@}

private:
  const char* mpPoolOrEmpty() const {
    const char* p = data(true);
    return p == nullptr ? "" : p;
  }
};

inline cAsciiString operator+(const char* text, const cAsciiString& s) { return cAsciiString(text) + s; }

}  // namespace qstd

#endif
