// Encodes arbitrary characters (four input bytes each) with both endecs and
// decodes them again: what an encoder accepts must come back unchanged,
// except for the forms the UTF-8 decoder rejects by design.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cstring.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qucs::cString text;
  bool utf8Decodable = true, utf16Encodable = true;
  for (std::size_t i = 0; i + 4 <= size; i += 4) {
    std::uint32_t c;
    std::memcpy(&c, data + i, 4);
    // Mostly small characters, so that every length is reached often.
    switch (c >> 30) {
      case 0:
        c &= 0x7F;
        break;
      case 1:
        c &= 0xFFFF;
        break;
      case 2:
        c &= 0x3FFFF;
        break;
      default:
        break;
    }
    text.append(static_cast<unsigned int>(c));
    if (c == 0 || c >= 200000u) utf8Decodable = false;
    if (c > 0x10FFFFu || (c >= 0xD800u && c <= 0xDFFFu)) utf16Encodable = false;
  }

  qstd::tArray<char> bytes;
  qucs::cEnDecUTF8::defaultEnDec().encode(text, bytes);
  qstd::tArray<char> one;
  for (unsigned int i = 0; i < text.size(); ++i) qucs::cEnDecUTF8::encodeChar(text[i], one);
  if (!(one == bytes)) std::abort();
  qucs::cString back;
  try {
    qucs::cEnDecUTF8().decode(bytes, back);
    if (!utf8Decodable || !(back == text)) std::abort();
  } catch (const qstd::cRuntimeException&) {
    if (utf8Decodable) std::abort();
  }

  for (unsigned int flags = 1; flags < 8; ++flags) {
    const qucs::cEnDecUTF16 endec(flags);
    qstd::tArray<char> b16;
    try {
      endec.encode(text, b16);
    } catch (const qstd::cRuntimeException&) {
      if (utf16Encodable || b16.size() != 0) std::abort();
      continue;
    }
    if (!utf16Encodable) std::abort();
    qucs::cString back16;
    endec.decode(b16, back16);
    if (!(back16 == text)) std::abort();
  }
  return 0;
}
