#include "qelcore/std/casciistring.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/cnumberconversion.h"
#include "qelcore/std/cnumberconversionformat.h"

namespace qstd {

cAsciiString::cAsciiString(const char* text) : tBase(text) {}

cAsciiString::cAsciiString(const cAsciiString& other, unsigned int from) {
  arrayops::checkPosition("cAsciiString", "cAsciiString", from, other.size());
  setData(other.data(true) + from, other.size() - from);
}

cAsciiString::cAsciiString(const tConstArrayRef<char, tArrayByteLevelTraits<char>>& bytes) {
  const unsigned int n = bytes.proxyLength();
  setSize(n);
  bytes.proxyCopyPartTo(data(), 0, n);
}

cAsciiString::~cAsciiString() {}

cAsciiString& cAsciiString::operator=(const char* text) {
  QEL_ASSERT(text != 0, "std/casciistring");
  setData(text, arrayops::terminatedLength(text));
  return *this;
}

cAsciiString& cAsciiString::operator+=(const char* text) {
  QEL_ASSERT(text != 0, "std/casciistring");
  append(text, arrayops::terminatedLength(text));
  return *this;
}

cAsciiString cAsciiString::operator+(const cAsciiString& other) const {
  cAsciiString result(*this);
  result += other;
  return result;
}

cAsciiString cAsciiString::operator+(const char* text) const {
  cAsciiString result(*this);
  result += text;
  return result;
}

cAsciiString& cAsciiString::leftAdjust(unsigned int width, char fill) {
  if (size() < width) {
    appendElements(width - size(), fill);
  }
  return *this;
}

cAsciiString& cAsciiString::rightAdjust(unsigned int width, char fill) {
  if (size() < width) {
    const unsigned int pad = width - size();
    proxyInsertDefaultObjects(0, pad);
    tBase::fill(0, fill, pad);
  }
  return *this;
}

cAsciiString& cAsciiString::adjust(unsigned int width, char fill) {
  if (size() < width) {
    const unsigned int pad = width - size();
    const unsigned int front = pad / 2;
    // Both sides at once, so that a failure leaves the string as it was.
    cAsciiString result;
    result.setGrowStep(growStep());
    result.setFitOnErase(fitOnErase());
    result.setSize(width);
    char* p = result.data();
    std::memset(p, fill, front);
    std::memcpy(p + front, data(), size());
    std::memset(p + front + size(), fill, pad - front);
    swap(result);
  }
  return *this;
}

cAsciiString& cAsciiString::setFixedLength(unsigned int width, const cAsciiString& suffix, char fill) {
  const unsigned int w = width > suffix.size() ? width : suffix.size();
  if (size() > w) {
    const cAsciiString tail(suffix);  // the suffix may be this string
    truncate(w - tail.size());
    *this += tail;
  } else if (size() < w) {
    leftAdjust(w, fill);
  }
  return *this;
}

cAsciiString& cAsciiString::ltrim() {
  unsigned int n = 0;
  const char* p = data(true);
  while (n < size() && p[n] == ' ') {
    ++n;
  }
  if (n > 0) {
    tBase::erase(0, n);
  }
  return *this;
}

cAsciiString& cAsciiString::rtrim() {
  unsigned int n = 0;
  const char* p = data(true);
  while (n < size() && p[size() - 1 - n] == ' ') {
    ++n;
  }
  if (n > 0) {
    tBase::erase(n);
  }
  return *this;
}

cAsciiString& cAsciiString::trim() {
  ltrim();
  return rtrim();
}

cAsciiString& cAsciiString::toUpper() {
  char* p = data(true);
  for (unsigned int i = 0; i < size(); ++i) {
    p[i] = upperCase(p[i]);
  }
  return *this;
}

cAsciiString& cAsciiString::toLower() {
  char* p = data(true);
  for (unsigned int i = 0; i < size(); ++i) {
    p[i] = lowerCase(p[i]);
  }
  return *this;
}

cAsciiString cAsciiString::upperCase() const {
  cAsciiString result(*this);
  result.toUpper();
  return result;
}

cAsciiString cAsciiString::lowerCase() const {
  cAsciiString result(*this);
  result.toLower();
  return result;
}

// The set forms format aside first, so that a failed conversion
// leaves the string unchanged.

cAsciiString& cAsciiString::setNum32(int value) { return setNum(value, cNumberConversionFormat::systemDefault()); }
cAsciiString& cAsciiString::setNum32(int value, const cNumberConversionFormat& format) { return setNum(value, format); }
cAsciiString& cAsciiString::setUNum32(unsigned int value) {
  return setUNum(value, cNumberConversionFormat::systemDefault());
}
cAsciiString& cAsciiString::setUNum32(unsigned int value, const cNumberConversionFormat& format) {
  return setUNum(value, format);
}
cAsciiString& cAsciiString::setNum(long long value) { return setNum(value, cNumberConversionFormat::systemDefault()); }
cAsciiString& cAsciiString::setNum(long long value, const cNumberConversionFormat& format) {
  cAsciiString text;
  cNumberConversion::appendSigned(value, text, format);
  setData(text.data(), text.size());
  return *this;
}
cAsciiString& cAsciiString::setUNum(unsigned long long value) {
  return setUNum(value, cNumberConversionFormat::systemDefault());
}
cAsciiString& cAsciiString::setUNum(unsigned long long value, const cNumberConversionFormat& format) {
  cAsciiString text;
  cNumberConversion::appendUnsigned(value, text, format);
  setData(text.data(), text.size());
  return *this;
}
cAsciiString& cAsciiString::setDouble(double value) {
  return setDouble(value, cNumberConversionFormat::systemDefault());
}
cAsciiString& cAsciiString::setDouble(double value, const cNumberConversionFormat& format) {
  cAsciiString text;
  cNumberConversion::toStringFromDouble(value, text, format);
  setData(text.data(), text.size());
  return *this;
}

cAsciiString& cAsciiString::addNum32(int value) { return addNum(value, cNumberConversionFormat::systemDefault()); }
cAsciiString& cAsciiString::addNum32(int value, const cNumberConversionFormat& format) { return addNum(value, format); }
cAsciiString& cAsciiString::addUNum32(unsigned int value) {
  return addUNum(value, cNumberConversionFormat::systemDefault());
}
cAsciiString& cAsciiString::addUNum32(unsigned int value, const cNumberConversionFormat& format) {
  return addUNum(value, format);
}
cAsciiString& cAsciiString::addNum(long long value) { return addNum(value, cNumberConversionFormat::systemDefault()); }
cAsciiString& cAsciiString::addNum(long long value, const cNumberConversionFormat& format) {
  cAsciiString text;
  cNumberConversion::appendSigned(value, text, format);
  return *this += text;
}
cAsciiString& cAsciiString::addUNum(unsigned long long value) {
  return addUNum(value, cNumberConversionFormat::systemDefault());
}
cAsciiString& cAsciiString::addUNum(unsigned long long value, const cNumberConversionFormat& format) {
  cAsciiString text;
  cNumberConversion::appendUnsigned(value, text, format);
  return *this += text;
}
cAsciiString& cAsciiString::addDouble(double value) {
  return addDouble(value, cNumberConversionFormat::systemDefault());
}
cAsciiString& cAsciiString::addDouble(double value, const cNumberConversionFormat& format) {
  cAsciiString text;
  cNumberConversion::toStringFromDouble(value, text, format);
  return *this += text;
}

long long cAsciiString::toInt() const { return cNumberConversion::fromString(*this); }
long long cAsciiString::toInt(const cNumberConversionFormat& format) const {
  return cNumberConversion::fromString(*this, format);
}
unsigned long long cAsciiString::toUInt() const { return cNumberConversion::fromStringToUnsigned(*this); }
unsigned long long cAsciiString::toUInt(const cNumberConversionFormat& format) const {
  return cNumberConversion::fromStringToUnsigned(*this, format);
}
double cAsciiString::toDouble() const { return cNumberConversion::fromStringToDouble(*this); }
double cAsciiString::toDouble(const cNumberConversionFormat& format) const {
  return cNumberConversion::fromStringToDouble(*this, format);
}

cAsciiString cAsciiString::number(long long value) {
  cAsciiString text;
  return text.setNum(value);
}

cAsciiString cAsciiString::number(unsigned long long value) {
  cAsciiString text;
  return text.setUNum(value);
}

qsa::cAbstractSerializer& cAsciiString::operator>>(qsa::cAbstractSerializer& s) const {
  s.store(*this);
  return s;
}

qsa::cAbstractDeserializer& cAsciiString::operator<<(qsa::cAbstractDeserializer& d) {
  d.load(*this);
  return d;
}

}  // namespace qstd
