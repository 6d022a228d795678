#include "qelcore/qce/net++/cnetabstractipv4address.h"

#include "qelcore/qce/cqceexceptions.h"
#include "qelcore/std/cnumberconversion.h"
#include "qelcore/std/cnumberconversionformat.h"

namespace qce {

namespace {

// Plain decimal, whatever the system's default format says: no "0x"
// prefixes, no blanks.
qstd::cNumberConversionFormat makeDecimalFormat() {
  qstd::cNumberConversionFormat format(10);
  format.setBaseDetectionEnabled(false);
  format.setIgnoreLeadingSpaces(false);
  return format;
}

const qstd::cNumberConversionFormat& decimalFormat() {
  static const qstd::cNumberConversionFormat format(makeDecimalFormat());
  return format;
}

// The tokens of the text form: runs between "." separators (empty runs are
// skipped) and ":" as a token of its own. An empty token means none is left.
class cTokens {
public:
  explicit cTokens(const qstd::cAsciiString& text) : mp(text.c_str()), mpEnd(text.c_str() + text.size()) {}

  bool next(const char*& begin, unsigned int& length) {
    while (mp != mpEnd && *mp == '.') ++mp;
    begin = mp;
    if (mp != mpEnd && *mp == ':') {
      ++mp;
    } else {
      while (mp != mpEnd && *mp != '.' && *mp != ':') ++mp;
    }
    length = static_cast<unsigned int>(mp - begin);
    return length != 0;
  }

private:
  const char* mp;
  const char* mpEnd;
};

// A token as a decimal number. Plain digits are read here; anything else goes
// to the number conversion, which reads signs and reports bad characters.
long long decimal(const char* token, unsigned int length) {
  if (length <= 9) {
    long long value = 0;
    unsigned int i = 0;
    for (; i < length && token[i] >= '0' && token[i] <= '9'; ++i) value = value * 10 + (token[i] - '0');
    if (i == length) return value;
  }
  return qstd::cNumberConversion::fromString(token, length, decimalFormat());
}

}  // namespace

cNetAbstractIPv4Address::~cNetAbstractIPv4Address() {}

qstd::cAsciiString cNetAbstractIPv4Address::addrType() const { return "TcpIpv4"; }

cNetAbstractAddress& cNetAbstractIPv4Address::fromString(const qstd::cAsciiString& text) {
  cTokens tokens(text);
  const char* token = nullptr;
  unsigned int length = 0;
  unsigned int value = 0;
  for (unsigned int i = 0; i < 4; ++i) {
    if (!tokens.next(token, length)) cQCEExceptions::throwExpectingNumber();
    const long long part = decimal(token, length);
    if (part < 0 || part > 255) cQCEExceptions::throwIPPartRange(part);
    value |= static_cast<unsigned int>(part) << (8 * i);
  }
  unsigned int port = 0;
  if (tokens.next(token, length) && *token == ':') {
    if (!tokens.next(token, length)) cQCEExceptions::throwExpectingPort();
    const long long number = decimal(token, length);
    if (number < 0 || number > 65535) cQCEExceptions::throwPortRange(number);
    port = static_cast<unsigned int>(number);
  }
  setAddress(value, port);
  return *this;
}

qstd::cAsciiString cNetAbstractIPv4Address::toString(int flags) const {
  unsigned int value = 0, port = 0;
  getAddress(value, port);
  qstd::cAsciiString text;
  for (unsigned int i = 0; i < 4; ++i) {
    if (i) text += '.';
    text.addUNum32((value >> (8 * i)) & 0xFF, decimalFormat());
  }
  if (flags & WithPort) {
    text += ':';
    text.addUNum32(port, decimalFormat());
  }
  return text;
}

}  // namespace qce
