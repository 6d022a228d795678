/// \class qucs::cString
/// The Unicode text string: one 32-bit code point per element, so indices
/// count characters. Used for everything a user may see and for file names;
/// identifiers and keys stay cAsciiString.
///
/// The capacity grows in sectors of four characters and is kept when the
/// string shrinks (strings are edited in place a lot).
#ifndef QELCORE_UCS_CSTRING_H
#define QELCORE_UCS_CSTRING_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tarraybyteleveltraits.h"
#include "qelcore/std/tconstarrayref.h"

namespace qstd {
class cNumberConversionFormat;
}
namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qucs {

class QEL_EXPORT cString : public qstd::tArray<unsigned int, qstd::tArrayByteLevelTraits<unsigned int>> {
public:
  /// The characters, one 32-bit value each.
  typedef qstd::tArray<unsigned int, qstd::tArrayByteLevelTraits<unsigned int>> tBase;

  /// An empty string.
  cString();
  ///@{
  /// Plain copies and moves.
  cString(const cString& other);
  cString(cString&& other) noexcept;
  ///@}
  /// Bytes above 127 are taken over as the characters of the same value.
  cString(const char* text);
  /// Each unit up to the terminating zero is one character (UTF-16 surrogate
  /// pairs are not combined).
  cString(const wchar_t* text);
  /// As fromAscii.
  cString(const qstd::cAsciiString& text, char replacement);
  /// These characters.
  explicit cString(const tBase& chars);
  ~cString() override;

  ///@{
  /// Assignments, as the constructors take their arguments.
  cString& operator=(const cString& other);
  cString& operator=(cString&& other) noexcept;
  cString& operator=(const char* text);
  cString& operator=(const tBase& chars);
  ///@}

  ///@{
  /// The characters as an array.
  tBase& array() { return *this; }
  const tBase& array() const { return *this; }
  ///@}

  /// Each byte below 128 becomes that character, every other `replacement`.
  cString& fromAscii(const qstd::cAsciiString& text, unsigned int replacement);
  /// Appends one byte per character: itself below 128, else `replacement`.
  void toAscii(qstd::cAsciiString& out, char replacement) const;
  /// toAscii() into a new string.
  qstd::cAsciiString ascii(char replacement = '?') const;

  ///@{
  /// UTF-8 through the system's default encoder. The second form appends to `out`.
  qstd::tArray<char> toUTF8() const;
  void toUTF8(qstd::tArray<char>& out) const;
  ///@}
  /// Replaces the content with the decoded bytes. The text is decoded into a
  /// temporary first, so on a decode error the string keeps its content and
  /// the decoder's exception propagates.
  cString& fromUTF8(const qstd::tConstArrayRef<char>& bytes);

  ///@{
  /// Numbers through cNumberConversion; without a format the system's default.
  cString& setNum(long long value);
  cString& setNum(long long value, const qstd::cNumberConversionFormat& format);
  cString& setNum32(int value);
  cString& setNum32(int value, const qstd::cNumberConversionFormat& format);
  cString& setUNum(unsigned long long value);
  cString& setUNum(unsigned long long value, const qstd::cNumberConversionFormat& format);
  cString& setUNum32(unsigned int value);
  cString& setUNum32(unsigned int value, const qstd::cNumberConversionFormat& format);
  cString& setDouble(double value);
  cString& setDouble(double value, const qstd::cNumberConversionFormat& format);
  cString& addNum(long long value);
  cString& addNum(long long value, const qstd::cNumberConversionFormat& format);
  cString& addNum32(int value);
  cString& addNum32(int value, const qstd::cNumberConversionFormat& format);
  cString& addUNum(unsigned long long value);
  cString& addUNum(unsigned long long value, const qstd::cNumberConversionFormat& format);
  cString& addUNum32(unsigned int value);
  cString& addUNum32(unsigned int value, const qstd::cNumberConversionFormat& format);
  cString& addDouble(double value);
  cString& addDouble(double value, const qstd::cNumberConversionFormat& format);
  long long toInt() const;
  long long toInt(const qstd::cNumberConversionFormat& format) const;
  unsigned long long toUInt() const;
  unsigned long long toUInt(const qstd::cNumberConversionFormat& format) const;
  double toDouble() const;
  double toDouble(const qstd::cNumberConversionFormat& format) const;
  ///@}

  /// One string element of an archive (32-bit characters or UTF-8, as the
  /// archive is set up).
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  /// Reads what operator>> wrote.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& d);

  ///@{
  /// Comparisons, character by character (bytes of `char` texts taken unsigned); < orders by character values.
  bool operator==(const cString& other) const;
  bool operator==(const qstd::cAsciiString& other) const;
  bool operator==(const char* text) const;
  bool operator==(const wchar_t* text) const;
  bool operator!=(const cString& other) const { return !(*this == other); }
  bool operator!=(const qstd::cAsciiString& other) const { return !(*this == other); }
  bool operator!=(const char* text) const { return !(*this == text); }
  bool operator!=(const wchar_t* text) const { return !(*this == text); }
  bool operator<(const cString& other) const { return relation(other) < 0; }
  ///@}
  /// Exactly the characters of `text` (bytes compared unsigned), same length.
  bool ccs(const char* text) const;

  ///@{
  /// Appending a character, characters, a C text (appendC, bytes as characters) or another string; + makes a new string.
  cString& append(char c);
  cString& append(wchar_t c);
  cString& append(unsigned int c);
  cString& append(const tBase& chars);
  cString& append(const unsigned int* chars, unsigned int count);
  cString& appendC(const char* text);
  cString& appendC(const char* text, unsigned int length);
  cString& addString(const cString& other);
  cString& operator+=(const cString& other) { return addString(other); }
  cString& operator+=(const char* text) { return appendC(text); }
  cString& operator+=(unsigned int c) { return append(c); }
  cString operator+(const cString& other) const;
  cString operator+(const char* text) const;
  ///@}

  ///@{
  /// Layout; nothing happens when the string has `width` characters or more.
  /// leftAdjust keeps the text left (fill behind), rightAdjust puts the fill
  /// in front, adjust centres (the odd fill character goes behind).
  cString& leftAdjust(unsigned int width, unsigned int fill = ' ');
  cString& rightAdjust(unsigned int width, unsigned int fill = ' ');
  cString& adjust(unsigned int width, unsigned int fill = ' ');
  ///@}
  /// Exactly max(length, suffix size) long: a longer text is cut and ends in
  /// `suffix`, a shorter one is padded behind with `fill`.
  cString& setFixedLength(unsigned int length, const cString& suffix, unsigned int fill = ' ');

  ///@{
  /// Only the blank (32) is trimmed.
  cString& ltrim();
  cString& rtrim();
  cString& trim();
  ///@}
  /// Replaces every character `what` by `with`.
  cString& replace(unsigned int what, unsigned int with);

  ///@{
  /// ASCII letters only.
  static unsigned int upperCase(unsigned int c) { return (c >= 'a' && c <= 'z') ? c - 32 : c; }
  static unsigned int lowerCase(unsigned int c) { return (c >= 'A' && c <= 'Z') ? c + 32 : c; }
  cString& upperCase();
  cString& lowerCase();
  ///@}

private:
  void initLayout();
};

QEL_EXPORT cString operator+(const wchar_t* text, const cString& s);

}  // namespace qucs

#endif
