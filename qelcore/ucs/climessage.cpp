#include "qelcore/ucs/climessage.h"

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <utility>
#include <vector>

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversion.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qucs {

namespace {

struct cParam {
  qstd::cAsciiString msName;  // "%name", without the closing percent sign
  cString msValue;
  cLIMessage::ParamKind meKind;
};

// A placeholder found in a text.
struct cPlaceholder {
  unsigned int miStart;  // index of the opening percent sign
  unsigned int miEnd;    // index after the placeholder
};

// Finds the next placeholder at or after `pos`. A backslash makes the next
// character ordinary; a placeholder ends after a closing percent sign, before
// a blank, or at the end of the text. Works on any character type.
template <typename C>
bool findPlaceholder(const C* text, unsigned int length, unsigned int pos, cPlaceholder& found) {
  for (unsigned int i = pos; i < length; ++i) {
    unsigned int c = static_cast<unsigned int>(text[i]);
    if (c == '\\') {
      ++i;
      continue;
    }
    if (c != '%') continue;
    found.miStart = i;
    unsigned int j = i + 1;
    while (j < length) {
      unsigned int d = static_cast<unsigned int>(text[j]);
      if (d == '%') {
        ++j;
        break;
      }
      if (d == ' ') break;
      ++j;
    }
    found.miEnd = j;
    return true;
  }
  return false;
}

template <typename C>
inline unsigned int charCode(C c) {
  return static_cast<unsigned int>(static_cast<typename std::make_unsigned<C>::type>(c));
}

// Orders a parameter's name against the placeholder text[p.miStart, +n):
// shorter names first, then character by character (as rendered, with
// non-ASCII as "?" when asked). Negative when the name comes first.
template <typename C>
int compareName(const cParam& param, const C* text, unsigned int start, unsigned int n, bool nonAsciiAsQuestion) {
  const unsigned int size = param.msName.size();
  if (size != n) return size < n ? -1 : 1;
  const unsigned char* name = reinterpret_cast<const unsigned char*>(param.msName.c_str());
  for (unsigned int i = 0; i < n; ++i) {
    unsigned int c = charCode(text[start + i]);
    if (nonAsciiAsQuestion && c > 127) c = '?';
    if (name[i] != c) return name[i] < c ? -1 : 1;
  }
  return 0;
}

// Length of the placeholder's name: everything but a closing percent sign.
template <typename C>
unsigned int nameLength(const C* text, const cPlaceholder& p) {
  unsigned int n = p.miEnd - p.miStart;
  if (n > 1 && charCode(text[p.miEnd - 1]) == '%') --n;
  return n;
}

// Appends text[from, to) with escapes resolved: a backslash is dropped and
// the character after it kept. Segments between placeholders always start
// outside an escape, so resolving them one by one equals one pass over the
// whole result.
template <typename C>
void appendUnescaped(cString& out, const C* text, unsigned int from, unsigned int to, bool nonAsciiAsQuestion) {
  for (unsigned int i = from; i < to; ++i) {
    unsigned int c = charCode(text[i]);
    if (c == '\\') {
      if (++i >= to) break;
      c = charCode(text[i]);
    }
    if (nonAsciiAsQuestion && c > 127) c = '?';
    out.append(c);
  }
}

// The placeholders of a key, counted only as far as a loaded key may have them.
unsigned int countPlaceholders(const qstd::cAsciiString& key) {
  const unsigned char* text = reinterpret_cast<const unsigned char*>(key.c_str());
  unsigned int count = 0;
  cPlaceholder p;
  for (unsigned int pos = 0; count <= cLIMessage::MaxLoadedPlaceholders && findPlaceholder(text, key.size(), pos, p);
       pos = p.miEnd)
    ++count;
  return count;
}

}  // namespace

class cLIMessage::cLIMessageImpl {
public:
  cString msRendered;
  qstd::cAsciiString msKey;
  unsigned int miScanPos = 0;
  bool mbTranslatable = true;
  std::vector<cParam> mParams;
  qstd::cNumberConversionFormat* mpFormat = nullptr;

  cLIMessageImpl() {}
  cLIMessageImpl(const cLIMessageImpl& o)
      : msRendered(o.msRendered),
        msKey(o.msKey),
        miScanPos(o.miScanPos),
        mbTranslatable(o.mbTranslatable),
        mParams(o.mParams),
        mpFormat(o.mpFormat ? new qstd::cNumberConversionFormat(*o.mpFormat) : nullptr) {}
  cLIMessageImpl& operator=(const cLIMessageImpl&) = delete;
  ~cLIMessageImpl() { delete mpFormat; }

  const qstd::cNumberConversionFormat& format() const {
    return mpFormat ? *mpFormat : qstd::cNumberConversionFormat::systemDefault();
  }

  void setTemplate(const char* text, unsigned int length) {
    static const char kTr[] = "$QTR$";
    static const char kNoTr[] = "$QNTR$";
    bool translatable = true;
    if (length >= 5 && std::memcmp(text, kTr, 5) == 0) {
      text += 5;
      length -= 5;
    } else if (length >= 6 && std::memcmp(text, kNoTr, 6) == 0) {
      text += 6;
      length -= 6;
      translatable = false;
    }
    qstd::cAsciiString key(text, length);
    msKey.swap(key);
    mbTranslatable = translatable;
    miScanPos = 0;
  }

  // Binds `value` to the next placeholder of the key; dropped when there is
  // none left.
  void bind(cString&& value, ParamKind kind) {
    const char* key = msKey.c_str();
    cPlaceholder p;
    if (!findPlaceholder(reinterpret_cast<const unsigned char*>(key), msKey.size(), miScanPos, p)) return;
    unsigned int n = nameLength(key, p);
    // Names are compared with the key as rendered, where non-ASCII is "?".
    qstd::cAsciiString name(key + p.miStart, n);
    for (unsigned int i = 0; i < n; ++i)
      if (static_cast<unsigned char>(name[i]) > 127) name[i] = '?';
    mParams.push_back(cParam{std::move(name), std::move(value), kind});
    miScanPos = p.miEnd;
  }

  // Up to this many values a placeholder's value is looked up by walking
  // them; with more, rendering sorts them by name first.
  static constexpr unsigned int IndexFrom = 8;

  // The parameter indices ordered by name, equal names in binding order, so
  // that the first of equal names is the one found.
  std::vector<unsigned int> index() const {
    std::vector<unsigned int> order(mParams.size());
    for (unsigned int i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(), [this](unsigned int a, unsigned int b) {
      const qstd::cAsciiString& x = mParams[a].msName;
      const qstd::cAsciiString& y = mParams[b].msName;
      if (x.size() != y.size()) return x.size() < y.size();
      return std::memcmp(x.c_str(), y.c_str(), x.size()) < 0;
    });
    return order;
  }

  // The first value bound to the placeholder's name, or null.
  template <typename C>
  const cParam* lookup(const C* text, const cPlaceholder& p, bool nonAsciiAsQuestion,
                       const std::vector<unsigned int>& order) const {
    const unsigned int n = nameLength(text, p);
    if (order.empty()) {
      for (const cParam& param : mParams)
        if (compareName(param, text, p.miStart, n, nonAsciiAsQuestion) == 0) return &param;
      return nullptr;
    }
    auto at = std::lower_bound(order.begin(), order.end(), 0u, [&](unsigned int i, unsigned int) {
      return compareName(mParams[i], text, p.miStart, n, nonAsciiAsQuestion) < 0;
    });
    if (at == order.end() || compareName(mParams[*at], text, p.miStart, n, nonAsciiAsQuestion) != 0) return nullptr;
    return &mParams[*at];
  }

  // Linear in the text and the values it takes in: each placeholder costs a
  // lookup in the values sorted by name (a walk over them when they are few).
  template <typename C>
  void render(const C* text, unsigned int length, bool nonAsciiAsQuestion, cString& out) const {
    const std::vector<unsigned int> order = mParams.size() > IndexFrom ? index() : std::vector<unsigned int>();
    cString result;
    // Built character by character: grow in larger sectors meanwhile, then
    // hand over the usual string layout.
    result.setGrowStep(6);
    unsigned int pos = 0;
    cPlaceholder p;
    while (findPlaceholder(text, length, pos, p)) {
      appendUnescaped(result, text, pos, p.miStart, nonAsciiAsQuestion);
      if (const cParam* param = lookup(text, p, nonAsciiAsQuestion, order))
        result.append(param->msValue);
      else
        result.appendC("???", 3);
      pos = p.miEnd;
    }
    appendUnescaped(result, text, pos, length, nonAsciiAsQuestion);
    result.setGrowStep(out.growStep());
    out.swap(result);
  }
};

cLIMessage::cLIMessage() : mpImpl(new cLIMessageImpl) {}

cLIMessage::cLIMessage(const qstd::cAsciiString& tmpl) : mpImpl(new cLIMessageImpl) { *this << tmpl; }

cLIMessage::cLIMessage(const char* tmpl) : mpImpl(new cLIMessageImpl) { *this << tmpl; }

cLIMessage::cLIMessage(const cLIMessage& other) : mpImpl(new cLIMessageImpl(*other.mpImpl)) {}

cLIMessage& cLIMessage::operator=(const cLIMessage& other) {
  if (this != &other) {
    cLIMessage copy(other);
    swap(copy);
  }
  return *this;
}

cLIMessage::~cLIMessage() { delete mpImpl; }

void cLIMessage::swap(cLIMessage& other) { std::swap(mpImpl, other.mpImpl); }

cLIMessage& cLIMessage::operator<<(const char* text) {
  if (!text) text = "";
  unsigned int n = static_cast<unsigned int>(std::strlen(text));
  if (mpImpl->msKey.empty()) {
    mpImpl->setTemplate(text, n);
  } else {
    cString value;
    value.appendC(text, n);
    mpImpl->bind(std::move(value), ParamText);
  }
  return *this;
}

cLIMessage& cLIMessage::operator<<(const qstd::cAsciiString& text) {
  if (mpImpl->msKey.empty()) {
    mpImpl->setTemplate(text.c_str(), text.size());
  } else {
    cString value;
    value.appendC(text.c_str(), text.size());
    mpImpl->bind(std::move(value), ParamText);
  }
  return *this;
}

cLIMessage& cLIMessage::operator<<(const cString& text) {
  mpImpl->bind(cString(text), ParamText);
  return *this;
}

cLIMessage& cLIMessage::operator<<(int value) { return *this << static_cast<long long>(value); }
cLIMessage& cLIMessage::operator<<(unsigned int value) { return *this << static_cast<unsigned long long>(value); }
cLIMessage& cLIMessage::operator<<(long value) { return *this << static_cast<long long>(value); }
cLIMessage& cLIMessage::operator<<(unsigned long value) { return *this << static_cast<unsigned long long>(value); }

cLIMessage& cLIMessage::operator<<(long long value) {
  cString text;
  qstd::cNumberConversion::appendSigned(value, text, mpImpl->format());
  mpImpl->bind(std::move(text), ParamInteger);
  return *this;
}

cLIMessage& cLIMessage::operator<<(unsigned long long value) {
  cString text;
  qstd::cNumberConversion::appendUnsigned(value, text, mpImpl->format());
  mpImpl->bind(std::move(text), ParamInteger);
  return *this;
}

cLIMessage& cLIMessage::operator<<(double value) {
  cString text;
  qstd::cNumberConversion::toStringFromDouble(value, text, mpImpl->format());
  mpImpl->bind(std::move(text), ParamDouble);
  return *this;
}

cLIMessage& cLIMessage::operator<<(const qstd::cNumberConversionFormat& format) {
  if (mpImpl->mpFormat)
    *mpImpl->mpFormat = format;
  else
    mpImpl->mpFormat = new qstd::cNumberConversionFormat(format);
  return *this;
}

const qstd::cNumberConversionFormat* cLIMessage::numberConversionFormat() const { return mpImpl->mpFormat; }
const qstd::cAsciiString& cLIMessage::key() const { return mpImpl->msKey; }
bool cLIMessage::isTranslatable() const { return mpImpl->mbTranslatable; }
unsigned int cLIMessage::scanPosition() const { return mpImpl->miScanPos; }
unsigned int cLIMessage::paramCount() const { return static_cast<unsigned int>(mpImpl->mParams.size()); }

const qstd::cAsciiString& cLIMessage::paramName(unsigned int i) const {
  if (i >= mpImpl->mParams.size())
    qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "paramName", qstd::OutOfRangeIndex, i, 0,
                                          static_cast<long long>(mpImpl->mParams.size()) - 1);
  return mpImpl->mParams[i].msName;
}

const cString& cLIMessage::paramValue(unsigned int i) const {
  if (i >= mpImpl->mParams.size())
    qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "paramValue", qstd::OutOfRangeIndex, i, 0,
                                          static_cast<long long>(mpImpl->mParams.size()) - 1);
  return mpImpl->mParams[i].msValue;
}

cLIMessage::ParamKind cLIMessage::paramKind(unsigned int i) const {
  if (i >= mpImpl->mParams.size())
    qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "paramKind", qstd::OutOfRangeIndex, i, 0,
                                          static_cast<long long>(mpImpl->mParams.size()) - 1);
  return mpImpl->mParams[i].meKind;
}

void cLIMessage::untranslated(cString& out) const {
  mpImpl->render(reinterpret_cast<const unsigned char*>(mpImpl->msKey.c_str()), mpImpl->msKey.size(), true, out);
}

void cLIMessage::untranslated(qstd::cAsciiString& out) const {
  cString text;
  untranslated(text);
  qstd::cAsciiString ascii;
  text.toAscii(ascii, '?');
  out.swap(ascii);
}

void cLIMessage::translate(const cString& translation, cString& out) const {
  if (!mpImpl->mbTranslatable) {
    untranslated(out);
    return;
  }
  mpImpl->render(translation.size() ? translation.data() : static_cast<const unsigned int*>(nullptr),
                 translation.size(), false, out);
}

void cLIMessage::restore(const qstd::cAsciiString& key, unsigned int scanPosition, bool translatable) {
  qstd::cAsciiString copy(key);
  mpImpl->msKey.swap(copy);
  mpImpl->miScanPos = scanPosition;
  mpImpl->mbTranslatable = translatable;
  mpImpl->mParams.clear();
}

void cLIMessage::addParam(const qstd::cAsciiString& name, const cString& value, ParamKind kind) {
  mpImpl->mParams.push_back(cParam{name, value, kind});
}

qsa::cAbstractSerializer& cLIMessage::operator>>(qsa::cAbstractSerializer& s) const {
  qsa::cContext context(s.newContext("cLIMessage"));
  key() >> s;
  scanPosition() >> s;
  isTranslatable() >> s;
  const unsigned int n = paramCount();
  n >> s;
  for (unsigned int i = 0; i < n; ++i) {
    paramName(i) >> s;
    paramValue(i) >> s;
    static_cast<unsigned int>(paramKind(i)) >> s;
  }
  context.release();
  return s;
}

qsa::cAbstractDeserializer& cLIMessage::operator<<(qsa::cAbstractDeserializer& d) {
  qsa::cContext context(d.getContext("cLIMessage"));
  qstd::cAsciiString key;
  unsigned int scanPosition = 0;
  bool translatable = true;
  unsigned int n = 0;
  key << d;
  scanPosition << d;
  translatable << d;
  n << d;
  // What another process sends is held to what messages of this library
  // need, so that rendering it stays small.
  const unsigned int placeholders = countPlaceholders(key);
  if (key.size() > MaxLoadedKeyLength)
    qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "operator<<", qstd::OutOfRangeSize, key.size(), 0,
                                          MaxLoadedKeyLength);
  if (placeholders > MaxLoadedPlaceholders)
    qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "operator<<", qstd::OutOfRangeSize, placeholders, 0,
                                          MaxLoadedPlaceholders);
  if (scanPosition > key.size())
    qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "operator<<", qstd::OutOfRangeValue, scanPosition, 0,
                                          key.size());
  if (n > placeholders)
    qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "operator<<", qstd::OutOfRangeSize, n, 0, placeholders);
  cLIMessage read;
  read.restore(key, scanPosition, translatable);
  // The count is not trusted for allocation: every entry is read before it is kept.
  for (unsigned int i = 0; i < n; ++i) {
    qstd::cAsciiString name;
    cString value;
    unsigned int kind = 0;
    name << d;
    value << d;
    kind << d;
    if (name.size() > MaxLoadedKeyLength)
      qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "operator<<", qstd::OutOfRangeSize, name.size(), 0,
                                            MaxLoadedKeyLength);
    if (value.size() > MaxLoadedValueLength)
      qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "operator<<", qstd::OutOfRangeSize, value.size(), 0,
                                            MaxLoadedValueLength);
    if (kind > ParamDouble)
      qstd::cSTDExceptions::throwOutOfRange("cLIMessage", "operator<<", qstd::OutOfRangeValue, kind, ParamText,
                                            ParamDouble);
    read.addParam(name, value, static_cast<ParamKind>(kind));
  }
  context.release();
  swap(read);
  return d;
}

}  // namespace qucs
