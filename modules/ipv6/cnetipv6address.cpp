#include "cnetipv6address.h"

#include <cstring>

#include "qelcore/pi/platform/cnativesockaddr.h"
#include "qelcore/qce/cqceexceptions.h"

namespace qce {

namespace {

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Parses the address in [p, end) into `out`; false when it is malformed.
bool parseAddress(const char* p, const char* end, unsigned char* out) {
  unsigned short groups[8] = {0};
  int count = 0;
  int gap = -1;  // where "::" stands, in groups
  if (p == end) return false;
  if (*p == ':') {
    if (end - p < 2 || p[1] != ':') return false;
    gap = 0;
    p += 2;
  }
  while (p != end) {
    if (count == 8) return false;
    // A group, or an IPv4 tail in the last two groups.
    const char* start = p;
    unsigned int value = 0;
    while (p != end && hexValue(*p) >= 0 && p - start < 5) value = value * 16 + static_cast<unsigned int>(hexValue(*p++));
    if (p != end && *p == '.') {
      if (count > 6) return false;
      unsigned int v4 = 0;
      p = start;
      for (int part = 0; part < 4; ++part) {
        if (part && (p == end || *p++ != '.')) return false;
        const char* digits = p;
        unsigned int n = 0;
        while (p != end && *p >= '0' && *p <= '9' && p - digits < 3) n = n * 10 + static_cast<unsigned int>(*p++ - '0');
        if (p == digits || n > 255 || (p - digits > 1 && *digits == '0')) return false;
        v4 = v4 << 8 | n;
      }
      if (p != end) return false;
      groups[count++] = static_cast<unsigned short>(v4 >> 16);
      groups[count++] = static_cast<unsigned short>(v4 & 0xFFFF);
      break;
    }
    if (p == start || p - start > 4) return false;
    groups[count++] = static_cast<unsigned short>(value);
    if (p == end) break;
    if (*p++ != ':') return false;
    if (p == end) return false;  // a single trailing colon
    if (*p == ':') {
      if (gap >= 0) return false;
      gap = count;
      ++p;
    }
  }
  if (gap < 0 ? count != 8 : count > 7) return false;
  unsigned short full[8] = {0};
  const int tail = gap < 0 ? 0 : count - gap;
  for (int i = 0; i < count - tail; ++i) full[i] = groups[i];
  for (int i = 0; i < tail; ++i) full[8 - tail + i] = groups[gap + i];
  for (int i = 0; i < 8; ++i) {
    out[2 * i] = static_cast<unsigned char>(full[i] >> 8);
    out[2 * i + 1] = static_cast<unsigned char>(full[i]);
  }
  return true;
}

void appendHex(qstd::cAsciiString& text, unsigned int group) {
  static const char digits[] = "0123456789abcdef";
  bool started = false;
  for (int shift = 12; shift >= 0; shift -= 4) {
    const unsigned int d = (group >> shift) & 0xF;
    if (d || started || shift == 0) {
      text += digits[d];
      started = true;
    }
  }
}

}  // namespace

cNetIPv6Address::cNetIPv6Address() : miPort(0) { std::memset(maBytes, 0, sizeof maBytes); }

cNetIPv6Address::cNetIPv6Address(const unsigned char* bytes, unsigned int port) { setAddress(bytes, port); }

cNetIPv6Address::~cNetIPv6Address() {}

qstd::cAsciiString cNetIPv6Address::addrType() const { return "TcpIpv6"; }

void cNetIPv6Address::setAddress(const unsigned char* bytes, unsigned int port) {
  std::memcpy(maBytes, bytes, sizeof maBytes);
  miPort = port & 0xFFFF;
}

cNetAbstractAddress& cNetIPv6Address::fromString(const qstd::cAsciiString& text) {
  const char* p = text.c_str();
  const char* end = p + text.size();
  unsigned char bytes[16];
  unsigned int port = 0;
  if (p != end && *p == '[') {
    const char* close = static_cast<const char*>(std::memchr(p, ']', static_cast<std::size_t>(end - p)));
    if (!close || !parseAddress(p + 1, close, bytes)) cQCEExceptions::throwMalformedIPv6(text);
    p = close + 1;
    if (p != end) {
      if (*p++ != ':') cQCEExceptions::throwMalformedIPv6(text);
      if (p == end) cQCEExceptions::throwExpectingPort();
      unsigned long long number = 0;
      for (const char* d = p; d != end; ++d) {
        if (*d < '0' || *d > '9') cQCEExceptions::throwMalformedIPv6(text);
        if (number <= 65535) number = number * 10 + static_cast<unsigned int>(*d - '0');
      }
      if (number > 65535) cQCEExceptions::throwPortRange(static_cast<long long>(number));
      port = static_cast<unsigned int>(number);
    }
  } else if (!parseAddress(p, end, bytes)) {
    cQCEExceptions::throwMalformedIPv6(text);
  }
  setAddress(bytes, port);
  return *this;
}

qstd::cAsciiString cNetIPv6Address::toString(int flags) const {
  unsigned int groups[8];
  for (int i = 0; i < 8; ++i) groups[i] = static_cast<unsigned int>(maBytes[2 * i]) << 8 | maBytes[2 * i + 1];
  // The longest run of two or more zero groups, the first of equal ones.
  int best = -1, bestLength = 1;
  for (int i = 0; i < 8;) {
    int j = i;
    while (j < 8 && groups[j] == 0) ++j;
    if (j - i > bestLength) {
      best = i;
      bestLength = j - i;
    }
    i = j == i ? i + 1 : j;
  }
  const bool mapped = best == 0 && bestLength == 5 && groups[5] == 0xFFFF;
  qstd::cAsciiString text;
  if (flags & WithPort) text += '[';
  for (int i = 0; i < (mapped ? 6 : 8); ++i) {
    if (i == best) {
      text += "::";
      i += bestLength - 1;
      continue;
    }
    if (i && i != best + bestLength) text += ':';
    appendHex(text, groups[i]);
  }
  if (mapped) {
    text += ':';
    for (int i = 12; i < 16; ++i) {
      if (i > 12) text += '.';
      text.addUNum32(maBytes[i]);
    }
  }
  if (flags & WithPort) {
    text += "]:";
    text.addUNum32(miPort);
  }
  return text;
}

cNetAbstractAddress* cNetIPv6Address::clone() const { return new cNetIPv6Address(*this); }

bool cNetIPv6Address::equals(const cNetAbstractAddress& other) const {
  const cNetIPv6Address* same = dynamic_cast<const cNetIPv6Address*>(&other);
  return same && std::memcmp(same->maBytes, maBytes, sizeof maBytes) == 0 && same->miPort == miPort;
}

unsigned int cNetIPv6Address::toSockAddr(void* buffer, unsigned int size) const {
  return qpi::cNativeSockAddr::fromIPv6(maBytes, miPort, buffer, size);
}

bool cNetIPv6Address::fromSockAddr(const void* sockAddr, unsigned int size) {
  unsigned char bytes[16];
  unsigned int port = 0;
  if (!qpi::cNativeSockAddr::toIPv6(sockAddr, size, bytes, port)) return false;
  setAddress(bytes, port);
  return true;
}

}  // namespace qce
