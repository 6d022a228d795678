// Fuzzes the IPv4 text form: any text either parses or throws the library's
// exception (leaving the address unchanged), and what parses prints to a text
// that parses to the same address.
#include <cstdint>
#include <cstdlib>

#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  const qstd::cAsciiString text(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size));
  qce::cNetIPv4Address a(0x01020304, 7);
  try {
    a.fromString(text);
  } catch (const qstd::cAbstractException&) {
    if (a.value() != 0x01020304 || a.port() != 7) std::abort();
    return 0;
  }
  qce::cNetIPv4Address b;
  b.fromString(a.toString(qce::cNetAbstractAddress::WithPort));
  if (!b.equals(a)) std::abort();
  return 0;
}
