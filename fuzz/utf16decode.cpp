// Fuzzes the UTF-16 decoder with every combination of the order and mark
// flags; whatever it decodes must encode back to the same bytes.
#include <cstdint>
#include <cstdlib>

#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cstring.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qstd::tArray<char> bytes;
  bytes.setGrowStep(0);
  if (size > 0) bytes.append(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size));

  for (unsigned int flags = 0; flags < 8; ++flags) {
    const qucs::cEnDecUTF16 endec(flags);
    qucs::cString out;
    try {
      endec.decode(bytes, out);
    } catch (const qstd::cRuntimeException&) {
      continue;
    }
    // At most one character per two bytes, and each one encodable.
    if (out.size() > size / 2) std::abort();
    if (size == 0) continue;
    qstd::tArray<char> again;
    endec.encode(out, again);
    // With a mark the order is taken from the data, so only the content is
    // compared; without one the bytes must be the same.
    const unsigned int skipIn = (flags & 4) != 0 || (flags & 3) == 0 ? 2 : 0;
    const unsigned int skipOut = (flags & 4) != 0 ? 2 : 0;
    const bool sameOrder = skipIn == 0 || (data[0] == 0xFE) == ((flags & 2) != 0);
    if (again.size() - skipOut != size - skipIn) std::abort();
    if (sameOrder)
      for (unsigned int i = 0; i < size - skipIn; ++i)
        if (again[i + skipOut] != static_cast<char>(data[i + skipIn])) std::abort();
  }
  return 0;
}
