/// \class qstd::cNumberConversionFormat
/// How numbers are written and read: base, padding, digit symbols, precision.
/// cNumberConversion does the work; every number operation of the strings and
/// messages takes one of these or uses the system's default.
#ifndef QELCORE_STD_CNUMBERCONVERSIONFORMAT_H
#define QELCORE_STD_CNUMBERCONVERSIONFORMAT_H

#include "qelcore/qelexport.h"

namespace qstd {

class cAsciiString;

class QEL_EXPORT cNumberConversionFormat {
public:
  /// The letters of the digits above 9.
  enum DigitCase { UpperCase = 0, LowerCase = 1 };
  enum : unsigned int { DigitSymbolCount = 37 };  // 36 symbols and a terminating zero

  /// Lower-case standard symbols, no padding, leading spaces ignored, base
  /// prefixes detected, 14 fractional digits with trailing zeros removed;
  /// `base` as setBase() takes it.
  explicit cNumberConversionFormat(unsigned int base = 10);
  ///@{
  /// Copies every setting.
  cNumberConversionFormat(const cNumberConversionFormat& other);
  cNumberConversionFormat& operator=(const cNumberConversionFormat& other);
  ///@}
  virtual ~cNumberConversionFormat();

  /// The base, 2 to 36 (10 by default).
  unsigned int base() const { return miBase; }
  /// 2 to 36, else cRuntimeException "Invalid base for a decimal...".
  void setBase(unsigned int base);
  ///@{
  /// The least number of characters written; shorter numbers are padded with leadingDigit() (0: no padding).
  unsigned int fixedWidth() const { return miFixedWidth; }
  void setFixedWidth(unsigned int width) { miFixedWidth = width; }
  ///@}
  ///@{
  /// The padding character ('0' by default).
  char leadingDigit() const { return mcLeadingDigit; }
  void setLeadingDigit(char c) { mcLeadingDigit = c; }
  ///@}
  /// The case of the standard symbols.
  DigitCase digitCase() const { return meDigitCase; }
  /// Resets all 36 symbols to 0-9 and the letters of the case.
  void setDigitCase(DigitCase c);
  ///@{
  /// Whether reading skips blanks before the number.
  bool ignoreLeadingSpaces() const { return mbIgnoreLeadingSpaces; }
  void setIgnoreLeadingSpaces(bool on) { mbIgnoreLeadingSpaces = on; }
  ///@}
  ///@{
  /// Whether reading recognises a base prefix (see detectBase()).
  bool baseDetectionEnabled() const { return mbBaseDetection; }
  void setBaseDetectionEnabled(bool on) { mbBaseDetection = on; }
  ///@}
  /// The 36 symbols followed by a zero.
  const char* getDigitSymbolSet() const { return mszDigitSymbols; }
  /// Symbol i (checked against the 37 entries).
  char digitChar(unsigned int i) const;
  /// Replaces symbol i; cOutOfRangeException for an index beyond the 37 entries.
  void setDigitSymbol(unsigned int i, char symbol);
  ///@{
  /// Digits written after the point of a floating-point number; the value is rounded to them.
  unsigned int precision() const { return miPrecision; }
  void setPrecision(unsigned int precision) { miPrecision = precision; }
  ///@}
  ///@{
  /// Whether trailing zeros of the fraction are left out.
  bool isRemoveTrainlingZeros() const { return mbRemoveTrailingZeros; }
  void setRemoveTrailingZeros(bool on) { mbRemoveTrailingZeros = on; }
  ///@}
  ///@{
  /// Whether the sign and the integer part are written.
  bool isAddIntegerPart() const { return mbAddIntegerPart; }
  void addIntegerPart(bool on) { mbAddIntegerPart = on; }
  ///@}
  ///@{
  /// Whether the point and the fraction are written (never with precision 0).
  bool isAddFractionalPart() const { return mbAddFractionalPart; }
  void addFractionalPart(bool on) { mbAddFractionalPart = on; }
  ///@}

  ///@{
  /// Recognises a base prefix ("0x", "0h", "0d", "0b", "<base:NN>") at the
  /// start of `text`.
  bool detectBase(const cAsciiString& text, unsigned int& base, unsigned int& prefixLength) const;
  bool detectBase(const char* text, unsigned int length, unsigned int& base, unsigned int& prefixLength) const;
  bool detectBase(const unsigned int* text, unsigned int length, unsigned int& base, unsigned int& prefixLength) const;
  ///@}

  /// True while the symbols are the unchanged set of the digit case.
  bool hasStandardSymbols() const { return mbStandardSymbols; }

  /// The process-wide default format.
  static cNumberConversionFormat& getGlobalDefaultNumberConversionFormat();
  /// The format used wherever no format is given. Until a system object
  /// installs its own, this is the process-wide default.
  static const cNumberConversionFormat& systemDefault();
  /// Makes `format` (not owned; null restores the process-wide default) the
  /// system's default and returns the previous one.
  static const cNumberConversionFormat* installSystemDefault(const cNumberConversionFormat* format);

private:
  unsigned int miBase;
  unsigned int miFixedWidth;
  char mcLeadingDigit;
  DigitCase meDigitCase;
  bool mbIgnoreLeadingSpaces;
  bool mbBaseDetection;
  char mszDigitSymbols[DigitSymbolCount];
  unsigned int miPrecision;
  bool mbRemoveTrailingZeros;
  bool mbAddIntegerPart;
  bool mbAddFractionalPart;
  bool mbStandardSymbols;
};

}  // namespace qstd

#endif
