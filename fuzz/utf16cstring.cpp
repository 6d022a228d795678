// Fuzzes decodeCString: the input, two bytes a unit, is terminated and read
// with every combination of the order and mark flags.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cstring.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Exactly the units plus the terminator, so that reading on is caught.
  std::vector<unsigned short> units(size / 2 + 1, 0);
  if (size >= 2) std::memcpy(units.data(), data, size / 2 * 2);
  unsigned int length = 0;
  while (units[length] != 0) ++length;

  for (unsigned int flags = 0; flags < 8; ++flags) {
    const qucs::cEnDecUTF16 endec(flags);
    qucs::cString out;
    try {
      endec.decodeCString(units.data(), out);
    } catch (const qstd::cRuntimeException&) {
      continue;
    }
    if (out.size() > length) std::abort();
    // What was decoded encodes again, to as many units as were read.
    qstd::tArray<unsigned short> again;
    qucs::cEnDecUTF16(flags & 3).encodeCString(out, again);
    const unsigned int marked = length > 0 && ((flags & 4) != 0 || (flags & 3) == 0) ? 1 : 0;
    if (again.size() != length - marked + 1) std::abort();
  }
  return 0;
}
