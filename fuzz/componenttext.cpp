// Component addresses and locations read from arbitrary text. What reads
// must print and read back to the same value; what fails must leave the
// object as it was.
#include <cstdint>
#include <cstdlib>

#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  const qstd::cAsciiString text(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size));

  const qcs::cComponentAddr before(3, 4);
  qcs::cComponentAddr address(before);
  try {
    address.fromString(text);
    check(address.valid());
    check(qcs::cComponentAddr(address.toString()) == address);
  } catch (const qstd::cAbstractException&) {
    check(address == before);
  }

  const qcs::cComponentLocation kept(qcs::cComponentAddr(5, 6), "kept", "k", 7);
  qcs::cComponentLocation location(kept);
  try {
    location.fromString(text);
    // Names lose their separators once; from then on the text form is stable.
    const qstd::cAsciiString printed = location.toString();
    check(qcs::cComponentLocation(printed) == location);
    check(qcs::cComponentLocation(printed).toString() == printed);
  } catch (const qstd::cAbstractException&) {
    check(location == kept);
  }
  return 0;
}
