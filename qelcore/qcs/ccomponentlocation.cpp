#include "qelcore/qcs/ccomponentlocation.h"

#include <cstring>
#include <utility>

#include "qelcore/pi/cplatform.h"
#include "qelcore/qcs/detail/decimaltext.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/ccontext.h"

namespace qcs {

namespace {

// Asking the platform means a system call (on Windows starting and stopping
// the socket library), and every default location asks: once is enough.
struct cHere {
  cHere() : host(qpi::cPlatform::hostname()), pid(qpi::cPlatform::pid()) {}
  qstd::cAsciiString host;
  unsigned int pid;
};

const cHere& here() {
  static const cHere h;
  return h;
}

// The text form reads like a stream of words after replacing separators by
// blanks; these predicates say what ends a word at each step.
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }
bool endsAddressWord(char c) { return isBlank(c) || c == '-'; }
bool separatesPid(char c) { return endsAddressWord(c) || c == '@'; }
bool endsNameWord(char c) { return separatesPid(c) || c == ':'; }

// Skips what `sep` calls separators, then takes the word up to the next one.
template <typename Sep>
bool nextWord(const char* text, unsigned int length, unsigned int& pos, Sep sep, unsigned int& start,
              unsigned int& wordLength) {
  while (pos < length && sep(text[pos])) ++pos;
  start = pos;
  while (pos < length && !sep(text[pos])) ++pos;
  wordLength = pos - start;
  return wordLength != 0;
}

}  // namespace

cComponentLocation::cComponentLocation() : miPid(0) { provide(); }

cComponentLocation::cComponentLocation(const cComponentAddr& address, const qstd::cAsciiString& hostName,
                                       const qstd::cAsciiString& localId, unsigned int pid)
    : mAddress(address), msHostName(hostName), msLocalId(localId), miPid(pid) {}

cComponentLocation::cComponentLocation(const qstd::cAsciiString& text) : miPid(0) { fromString(text); }

void cComponentLocation::swap(cComponentLocation& other) noexcept {
  mAddress.swap(other.mAddress);
  msHostName.swap(other.msHostName);
  msLocalId.swap(other.msLocalId);
  std::swap(miPid, other.miPid);
}

void cComponentLocation::provide() {
  const cHere& h = here();
  qstd::cAsciiString host(h.host);
  msHostName.swap(host);
  msLocalId.clear();
  miPid = h.pid;
}

bool cComponentLocation::operator==(const cComponentLocation& other) const {
  return miPid == other.miPid && mAddress == other.mAddress && msHostName == other.msHostName &&
         msLocalId == other.msLocalId;
}

void cComponentLocation::appendTo(qstd::cAsciiString& out) const {
  char numbers[3 * detail::MaxUInt32Digits + 3];
  const unsigned int n = writeNumbers(numbers);
  out.append(numbers, n);
  out += msHostName;
  if (!msLocalId.empty()) {
    out += ':';
    out += msLocalId;
  }
}

qstd::cAsciiString cComponentLocation::toString() const {
  // Composed on the stack first, so the string is allocated once.
  char text[128];
  unsigned int n = writeNumbers(text);
  const unsigned int host = msHostName.size();
  const unsigned int local = msLocalId.size();
  if (n + host + 1 + local > sizeof text) {
    qstd::cAsciiString out;
    appendTo(out);
    return out;
  }
  if (host) std::memcpy(text + n, msHostName.c_str(), host);
  n += host;
  if (local) {
    text[n++] = ':';
    std::memcpy(text + n, msLocalId.c_str(), local);
    n += local;
  }
  return qstd::cAsciiString(text, n);
}

unsigned int cComponentLocation::writeNumbers(char* out) const {
  unsigned int n = detail::writeDecimal(mAddress.queueID(), out);
  out[n++] = ':';
  n += detail::writeDecimal(mAddress.moduleID(), out + n);
  out[n++] = '-';
  n += detail::writeDecimal(miPid, out + n);
  out[n++] = '@';
  return n;
}

void cComponentLocation::fromString(const qstd::cAsciiString& text) {
  const char* p = text.c_str();
  const unsigned int length = text.size();
  unsigned int pos = 0;
  unsigned int start = 0;
  unsigned int n = 0;
  nextWord(p, length, pos, endsAddressWord, start, n);
  cComponentAddr address;
  address.fromString(p + start, n);

  // The rest: a decimal pid, then host name and local id as words.
  unsigned int pid = 0;
  qstd::cAsciiString host;
  qstd::cAsciiString localId;
  while (pos < length && separatesPid(p[pos])) ++pos;
  unsigned long long value = 0;
  unsigned int digits = 0;
  for (; pos < length && p[pos] >= '0' && p[pos] <= '9' && value <= 0xFFFFFFFFull; ++pos, ++digits)
    value = value * 10 + static_cast<unsigned int>(p[pos] - '0');
  if (digits != 0 && value <= 0xFFFFFFFFull) {
    pid = static_cast<unsigned int>(value);
    if (nextWord(p, length, pos, endsNameWord, start, n)) {
      host.setData(p + start, n);
      if (nextWord(p, length, pos, endsNameWord, start, n)) localId.setData(p + start, n);
    }
  }
  mAddress = address;
  msHostName.swap(host);
  msLocalId.swap(localId);
  miPid = pid;
}

qsa::cAbstractSerializer& cComponentLocation::operator>>(qsa::cAbstractSerializer& s) const {
  if (s.noLabelsPreferred()) {
    mAddress >> s;
    msHostName >> s;
    msLocalId >> s;
    miPid >> s;
  } else {
    s.newLabel("LocalAddress");
    qsa::cContext address(s.newContext("ModuleAddress"));
    mAddress >> s;
    address.release();
    msHostName >> s.newLabel("HostName");
    msLocalId >> s.newLabel("LocalID");
    miPid >> s.newLabel("PID");
  }
  return s;
}

qsa::cAbstractDeserializer& cComponentLocation::operator<<(qsa::cAbstractDeserializer& d) {
  cComponentLocation read(cComponentAddr(), qstd::cAsciiString(), qstd::cAsciiString(), 0);
  if (d.isContext()) {
    qsa::cContext address(d.getContext("ModuleAddress"));
    read.mAddress << d;
    address.release();
  } else {
    read.mAddress << d;
  }
  read.msHostName << d;
  read.msLocalId << d;
  read.miPid << d;
  swap(read);
  return d;
}

}  // namespace qcs
