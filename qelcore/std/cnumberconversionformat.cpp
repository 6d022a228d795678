#include "qelcore/std/cnumberconversionformat.h"

#include <atomic>
#include <cstring>
#include <type_traits>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qstd {

namespace {

const char kLowerSymbols[] = "0123456789abcdefghijklmnopqrstuvwxyz";
const char kUpperSymbols[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

std::atomic<const cNumberConversionFormat*> gSystemDefault{nullptr};

template <typename C>
unsigned int code(C c) {
  return static_cast<unsigned int>(static_cast<typename std::make_unsigned<C>::type>(c));
}

template <typename C>
bool detect(const C* text, unsigned int length, unsigned int& base, unsigned int& prefixLength) {
  if (!text || length <= 2) return false;
  if (code(text[0]) == '0') {
    switch (code(text[1])) {
      case 'x':
      case 'h':
        base = 16;
        prefixLength = 2;
        return true;
      case 'd':
        base = 10;
        prefixLength = 2;
        return true;
      case 'b':
        base = 2;
        prefixLength = 2;
        return true;
      default:
        return false;
    }
  }
  static const char kBracket[] = "<base:";
  if (length < 8) return false;
  for (unsigned int i = 0; i < 6; ++i)
    if (code(text[i]) != static_cast<unsigned int>(kBracket[i])) return false;
  auto isDigit = [](unsigned int c) { return c >= '0' && c <= '9'; };
  unsigned int c6 = code(text[6]), c7 = code(text[7]);
  if (!isDigit(c6)) return false;
  unsigned int value;
  unsigned int prefix;
  if (c7 == '>') {
    value = c6 - '0';
    prefix = 8;
  } else if (isDigit(c7) && length >= 9 && code(text[8]) == '>') {
    value = (c6 - '0') * 10 + (c7 - '0');
    prefix = 9;
  } else {
    return false;
  }
  // The bracket form accepts base 1, unlike setBase().
  if (value < 1 || value > 36) return false;
  base = value;
  prefixLength = prefix;
  return true;
}

}  // namespace

cNumberConversionFormat::cNumberConversionFormat(unsigned int base)
    : miBase(10),
      miFixedWidth(0),
      mcLeadingDigit('0'),
      meDigitCase(LowerCase),
      mbIgnoreLeadingSpaces(true),
      mbBaseDetection(true),
      miPrecision(14),
      mbRemoveTrailingZeros(true),
      mbAddIntegerPart(true),
      mbAddFractionalPart(true),
      mbStandardSymbols(true) {
  std::memcpy(mszDigitSymbols, kLowerSymbols, DigitSymbolCount);
  setBase(base);
}

cNumberConversionFormat::cNumberConversionFormat(const cNumberConversionFormat& other) = default;
cNumberConversionFormat& cNumberConversionFormat::operator=(const cNumberConversionFormat& other) = default;
cNumberConversionFormat::~cNumberConversionFormat() {}

void cNumberConversionFormat::setBase(unsigned int base) {
  if (base < 2 || base > 36) cSTDExceptions::throwInvalidDecimalBase(static_cast<int>(base), 2, 36);
  miBase = base;
}

void cNumberConversionFormat::setDigitCase(DigitCase c) {
  meDigitCase = c != UpperCase ? LowerCase : UpperCase;
  std::memcpy(mszDigitSymbols, c != UpperCase ? kLowerSymbols : kUpperSymbols, DigitSymbolCount);
  mbStandardSymbols = true;
}

char cNumberConversionFormat::digitChar(unsigned int i) const {
  if (i >= DigitSymbolCount)
    cSTDExceptions::throwOutOfRange("DigitSymbols", "at", OutOfRangeIndex, i, 0, DigitSymbolCount - 1);
  return mszDigitSymbols[i];
}

void cNumberConversionFormat::setDigitSymbol(unsigned int i, char symbol) {
  if (i >= DigitSymbolCount)
    cSTDExceptions::throwOutOfRange("DigitSymbols", "setDigitSymbol", OutOfRangeIndex, i, 0, DigitSymbolCount - 1);
  mszDigitSymbols[i] = symbol;
  const char* standard = meDigitCase == UpperCase ? kUpperSymbols : kLowerSymbols;
  mbStandardSymbols = std::memcmp(mszDigitSymbols, standard, DigitSymbolCount) == 0;
}

bool cNumberConversionFormat::detectBase(const cAsciiString& text, unsigned int& base,
                                         unsigned int& prefixLength) const {
  return detect(text.c_str(), text.size(), base, prefixLength);
}

bool cNumberConversionFormat::detectBase(const char* text, unsigned int length, unsigned int& base,
                                         unsigned int& prefixLength) const {
  return detect(text, length, base, prefixLength);
}

bool cNumberConversionFormat::detectBase(const unsigned int* text, unsigned int length, unsigned int& base,
                                         unsigned int& prefixLength) const {
  return detect(text, length, base, prefixLength);
}

cNumberConversionFormat& cNumberConversionFormat::getGlobalDefaultNumberConversionFormat() {
  static cNumberConversionFormat format;
  return format;
}

const cNumberConversionFormat& cNumberConversionFormat::systemDefault() {
  const cNumberConversionFormat* installed = gSystemDefault.load(std::memory_order_acquire);
  return installed ? *installed : getGlobalDefaultNumberConversionFormat();
}

const cNumberConversionFormat* cNumberConversionFormat::installSystemDefault(const cNumberConversionFormat* format) {
  return gSystemDefault.exchange(format, std::memory_order_acq_rel);
}

}  // namespace qstd
