// Fuzzes the IPv6 text form of the IPv6 module: any text either parses or
// throws the library's exception (leaving the address unchanged); what
// parses prints in the standard form, which parses to the same address and
// prints the same again.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "cnetipv6address.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  const qstd::cAsciiString text(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size));
  const unsigned char marker[16] = {0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
  qce::cNetIPv6Address a(marker, 7);
  try {
    a.fromString(text);
  } catch (const qstd::cAbstractException&) {
    if (std::memcmp(a.bytes(), marker, 16) != 0 || a.port() != 7) std::abort();
    return 0;
  }
  for (int flags : {0, 1}) {
    const qstd::cAsciiString printed = a.toString(flags);
    qce::cNetIPv6Address b;
    b.fromString(printed);
    if (std::memcmp(a.bytes(), b.bytes(), 16) != 0 || (flags && b.port() != a.port())) std::abort();
    if (!(b.toString(flags) == printed)) std::abort();
  }
  return 0;
}
