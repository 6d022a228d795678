#include "qelcore/ucs/cstring.h"

#include <cstring>
#include <cwchar>
#include <type_traits>
#include <utility>

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/cnumberconversion.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/ucs/cendecutf8.h"

namespace qucs {

namespace {

const unsigned int kGrowStep = 2;

unsigned int wideUnit(wchar_t c) {
  // A 16-bit unit on Windows, a code point elsewhere.
  return static_cast<unsigned int>(static_cast<std::make_unsigned<wchar_t>::type>(c));
}

}  // namespace

void cString::initLayout() {
  setGrowStep(kGrowStep);
  setFitOnErase(false);
}

cString::cString() { initLayout(); }

cString::cString(const cString& other) : tBase(other) { initLayout(); }

cString::cString(cString&& other) noexcept : tBase(static_cast<tBase&&>(other)) { initLayout(); }

cString::cString(const char* text) {
  initLayout();
  appendC(text);
}

cString::cString(const wchar_t* text) {
  initLayout();
  if (!text) return;
  std::size_t n = std::wcslen(text);
  unsigned int at = appendElements(static_cast<unsigned int>(n));
  for (std::size_t i = 0; i < n; ++i) (*this)[at + static_cast<unsigned int>(i)] = wideUnit(text[i]);
}

cString::cString(const qstd::cAsciiString& text, char replacement) {
  initLayout();
  fromAscii(text, static_cast<unsigned char>(replacement));
}

cString::cString(const tBase& chars) : tBase(chars) { initLayout(); }

cString::~cString() {}

cString& cString::operator=(const cString& other) {
  tBase::operator=(other);
  initLayout();
  return *this;
}

cString& cString::operator=(cString&& other) noexcept {
  tBase::operator=(static_cast<tBase&&>(other));
  initLayout();
  return *this;
}

cString& cString::operator=(const char* text) {
  cString copy(text);
  swap(copy);
  return *this;
}

cString& cString::operator=(const tBase& chars) {
  tBase::operator=(chars);
  initLayout();
  return *this;
}

cString& cString::fromAscii(const qstd::cAsciiString& text, unsigned int replacement) {
  cString result;
  unsigned int n = text.size();
  if (n) {
    result.appendElements(n);
    const char* p = text.c_str();
    for (unsigned int i = 0; i < n; ++i) {
      unsigned char c = static_cast<unsigned char>(p[i]);
      result[i] = c < 128 ? c : replacement;
    }
  }
  swap(result);
  return *this;
}

void cString::toAscii(qstd::cAsciiString& out, char replacement) const {
  unsigned int n = size();
  if (!n) return;
  unsigned int at = out.appendElements(n);
  char* p = out.data() + at;
  for (unsigned int i = 0; i < n; ++i) {
    unsigned int c = (*this)[i];
    p[i] = c < 128 ? static_cast<char>(c) : replacement;
  }
}

qstd::cAsciiString cString::ascii(char replacement) const {
  qstd::cAsciiString out;
  toAscii(out, replacement);
  return out;
}

// --- UTF-8 --------------------------------------------------------------------

qstd::tArray<char> cString::toUTF8() const {
  qstd::tArray<char> out;
  toUTF8(out);
  return out;
}

void cString::toUTF8(qstd::tArray<char>& out) const { cEnDecUTF8::defaultEnDec().encode(*this, out); }

cString& cString::fromUTF8(const qstd::tConstArrayRef<char>& bytes) {
  cString decoded;
  cEnDecUTF8::defaultEnDec().decode(bytes, decoded);
  // The decoder reserves a character per byte; give most of it back when the
  // text was far from ASCII.
  if (decoded._poolSize() - decoded.size() > decoded.size() / 4 + 64) decoded.optimizeMemory();
  swap(decoded);
  return *this;
}

// --- numbers ------------------------------------------------------------------

using qstd::cNumberConversion;
using qstd::cNumberConversionFormat;

cString& cString::setNum(long long value) { return setNum(value, cNumberConversionFormat::systemDefault()); }
cString& cString::setNum(long long value, const cNumberConversionFormat& format) {
  cString s;
  cNumberConversion::appendSigned(value, s, format);
  swap(s);
  return *this;
}
cString& cString::setNum32(int value) { return setNum(value); }
cString& cString::setNum32(int value, const cNumberConversionFormat& format) { return setNum(value, format); }
cString& cString::setUNum(unsigned long long value) { return setUNum(value, cNumberConversionFormat::systemDefault()); }
cString& cString::setUNum(unsigned long long value, const cNumberConversionFormat& format) {
  cString s;
  cNumberConversion::appendUnsigned(value, s, format);
  swap(s);
  return *this;
}
cString& cString::setUNum32(unsigned int value) { return setUNum(value); }
cString& cString::setUNum32(unsigned int value, const cNumberConversionFormat& format) {
  return setUNum(value, format);
}
cString& cString::setDouble(double value) { return setDouble(value, cNumberConversionFormat::systemDefault()); }
cString& cString::setDouble(double value, const cNumberConversionFormat& format) {
  cString s;
  cNumberConversion::toStringFromDouble(value, s, format);
  swap(s);
  return *this;
}

cString& cString::addNum(long long value) { return addNum(value, cNumberConversionFormat::systemDefault()); }
cString& cString::addNum(long long value, const cNumberConversionFormat& format) {
  cNumberConversion::appendSigned(value, *this, format);
  return *this;
}
cString& cString::addNum32(int value) { return addNum(value); }
cString& cString::addNum32(int value, const cNumberConversionFormat& format) { return addNum(value, format); }
cString& cString::addUNum(unsigned long long value) { return addUNum(value, cNumberConversionFormat::systemDefault()); }
cString& cString::addUNum(unsigned long long value, const cNumberConversionFormat& format) {
  cNumberConversion::appendUnsigned(value, *this, format);
  return *this;
}
cString& cString::addUNum32(unsigned int value) { return addUNum(value); }
cString& cString::addUNum32(unsigned int value, const cNumberConversionFormat& format) {
  return addUNum(value, format);
}
cString& cString::addDouble(double value) { return addDouble(value, cNumberConversionFormat::systemDefault()); }
cString& cString::addDouble(double value, const cNumberConversionFormat& format) {
  // Through a scratch string: a double that cannot be written leaves this
  // string as it was.
  cString s;
  cNumberConversion::toStringFromDouble(value, s, format);
  return addString(s);
}

long long cString::toInt() const {
  return cNumberConversion::fromString(*this, cNumberConversionFormat::systemDefault());
}
long long cString::toInt(const cNumberConversionFormat& format) const {
  return cNumberConversion::fromString(*this, format);
}
unsigned long long cString::toUInt() const {
  return cNumberConversion::fromStringToUnsigned(*this, cNumberConversionFormat::systemDefault());
}
unsigned long long cString::toUInt(const cNumberConversionFormat& format) const {
  return cNumberConversion::fromStringToUnsigned(*this, format);
}
double cString::toDouble() const {
  return cNumberConversion::fromStringToDouble(*this, cNumberConversionFormat::systemDefault());
}
double cString::toDouble(const cNumberConversionFormat& format) const {
  return cNumberConversion::fromStringToDouble(*this, format);
}

// --- comparison ---------------------------------------------------------------

bool cString::operator==(const cString& other) const {
  return size() == other.size() &&
         (size() == 0 || std::memcmp(data(), other.data(), size() * sizeof(unsigned int)) == 0);
}

bool cString::operator==(const qstd::cAsciiString& other) const {
  unsigned int n = size();
  if (other.size() != n) return false;
  const char* p = other.c_str();
  for (unsigned int i = 0; i < n; ++i)
    if ((*this)[i] != static_cast<unsigned char>(p[i])) return false;
  return true;
}

bool cString::operator==(const char* text) const { return ccs(text); }

bool cString::operator==(const wchar_t* text) const {
  if (!text) return empty();
  unsigned int n = size();
  for (unsigned int i = 0; i < n; ++i)
    if (text[i] == 0 || (*this)[i] != wideUnit(text[i])) return false;
  return text[n] == 0;
}

bool cString::ccs(const char* text) const {
  if (!text) return empty();
  unsigned int n = size();
  for (unsigned int i = 0; i < n; ++i)
    if (text[i] == 0 || (*this)[i] != static_cast<unsigned char>(text[i])) return false;
  return text[n] == 0;
}

// --- editing ------------------------------------------------------------------

cString& cString::append(char c) { return append(static_cast<unsigned int>(static_cast<unsigned char>(c))); }
cString& cString::append(wchar_t c) { return append(wideUnit(c)); }
cString& cString::append(unsigned int c) {
  tBase::append(c);
  return *this;
}
cString& cString::append(const tBase& chars) {
  if (chars.size()) tBase::append(chars.data(), chars.size());
  return *this;
}
cString& cString::append(const unsigned int* chars, unsigned int count) {
  if (count) tBase::append(chars, count);
  return *this;
}

cString& cString::appendC(const char* text) {
  if (text) appendC(text, static_cast<unsigned int>(std::strlen(text)));
  return *this;
}

cString& cString::appendC(const char* text, unsigned int length) {
  if (!text || length == 0) return *this;
  unsigned int at = appendElements(length);
  unsigned int* p = data() + at;
  for (unsigned int i = 0; i < length; ++i) p[i] = static_cast<unsigned char>(text[i]);
  return *this;
}

cString& cString::addString(const cString& other) {
  if (this == &other) {
    cString copy(other);
    return append(copy);
  }
  return append(other);
}

cString cString::operator+(const cString& other) const {
  cString result(*this);
  result.addString(other);
  return result;
}

cString cString::operator+(const char* text) const {
  cString result(*this);
  result.appendC(text);
  return result;
}

cString operator+(const wchar_t* text, const cString& s) {
  cString result(text);
  result.addString(s);
  return result;
}

cString& cString::leftAdjust(unsigned int width, unsigned int fill) {
  if (size() < width) appendElements(width - size(), fill);
  return *this;
}

cString& cString::rightAdjust(unsigned int width, unsigned int fill) {
  unsigned int n = size();
  if (n >= width) return *this;
  cString result;
  result.appendElements(width - n, fill);
  result.append(*this);
  swap(result);
  return *this;
}

cString& cString::adjust(unsigned int width, unsigned int fill) {
  unsigned int n = size();
  if (n >= width) return *this;
  unsigned int front = (width - n) / 2;
  cString result;
  result.appendElements(front, fill);
  result.append(*this);
  result.appendElements(width - n - front, fill);
  swap(result);
  return *this;
}

cString& cString::setFixedLength(unsigned int length, const cString& suffix, unsigned int fill) {
  unsigned int target = length > suffix.size() ? length : suffix.size();
  if (size() > target) {
    cString result(*this);
    result.truncate(target - suffix.size());
    result.append(suffix);
    swap(result);
  } else if (size() < target) {
    appendElements(target - size(), fill);
  }
  return *this;
}

cString& cString::ltrim() {
  unsigned int n = size(), i = 0;
  while (i < n && (*this)[i] == ' ') ++i;
  if (i) erase(0, i);
  return *this;
}

cString& cString::rtrim() {
  unsigned int n = size();
  while (n && (*this)[n - 1] == ' ') --n;
  if (n != size()) truncate(n);
  return *this;
}

cString& cString::trim() { return ltrim().rtrim(); }

cString& cString::replace(unsigned int what, unsigned int with) {
  unsigned int n = size();
  for (unsigned int i = 0; i < n; ++i)
    if ((*this)[i] == what) (*this)[i] = with;
  return *this;
}

cString& cString::upperCase() {
  unsigned int n = size();
  for (unsigned int i = 0; i < n; ++i) (*this)[i] = upperCase((*this)[i]);
  return *this;
}

cString& cString::lowerCase() {
  unsigned int n = size();
  for (unsigned int i = 0; i < n; ++i) (*this)[i] = lowerCase((*this)[i]);
  return *this;
}

qsa::cAbstractSerializer& cString::operator>>(qsa::cAbstractSerializer& s) const {
  s.store(*this);
  return s;
}

qsa::cAbstractDeserializer& cString::operator<<(qsa::cAbstractDeserializer& d) {
  d.load(*this);
  return d;
}

}  // namespace qucs
