#include "qelcore/io/detail/cnamecodec.h"

#include "qelcore/ucs/cstring.h"

namespace qio {
namespace detail {

void cNameCodec::decode(const char* p, unsigned int n, qucs::cString& out) {
  const unsigned char* s = reinterpret_cast<const unsigned char*>(p);
  // At most one character per byte: size once, write through the pool.
  const unsigned int at = out.appendElements(n);
  unsigned int* d = n ? out.data() + at : nullptr;
  unsigned int w = 0;
  unsigned int i = 0;
  while (i < n) {
    const unsigned int b = s[i];
    if (b < 0x80) {
      d[w++] = b;
      ++i;
      continue;
    }
    unsigned int len = 0, c = 0, min = 0;
    if (b >= 0xC2 && b <= 0xDF) {
      len = 2, c = b & 0x1F, min = 0x80;
    } else if (b >= 0xE0 && b <= 0xEF) {
      len = 3, c = b & 0x0F, min = 0x800;
    } else if (b >= 0xF0 && b <= 0xF4) {
      len = 4, c = b & 0x07, min = 0x10000;
    }
    bool ok = len != 0 && i + len <= n;
    for (unsigned int k = 1; ok && k < len; ++k) {
      const unsigned int cont = s[i + k];
      if ((cont & 0xC0) != 0x80) ok = false;
      c = (c << 6) | (cont & 0x3F);
    }
    // Overlong forms, surrogates and values past U+10FFFF are not UTF-8.
    if (ok && (c < min || (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF)) ok = false;
    if (ok) {
      d[w++] = c;
      i += len;
    } else {
      d[w++] = 0xDC00 + b;
      ++i;
    }
  }
  out.truncate(at + w);
}

unsigned int cNameCodec::encode(const unsigned int* p, unsigned int n, char* out) {
  unsigned char* d = reinterpret_cast<unsigned char*>(out);
  unsigned int w = 0;
  for (unsigned int i = 0; i < n; ++i) {
    const unsigned int c = p[i];
    if (c < 0x80) {
      if (c == 0) return ~0u;
      d[w++] = static_cast<unsigned char>(c);
    } else if (c < 0x800) {
      d[w++] = static_cast<unsigned char>(0xC0 | (c >> 6));
      d[w++] = static_cast<unsigned char>(0x80 | (c & 0x3F));
    } else if (c >= 0xD800 && c <= 0xDFFF) {
      if (c < 0xDC80 || c > 0xDCFF) return ~0u;
      d[w++] = static_cast<unsigned char>(c - 0xDC00);
    } else if (c < 0x10000) {
      d[w++] = static_cast<unsigned char>(0xE0 | (c >> 12));
      d[w++] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
      d[w++] = static_cast<unsigned char>(0x80 | (c & 0x3F));
    } else if (c <= 0x10FFFF) {
      d[w++] = static_cast<unsigned char>(0xF0 | (c >> 18));
      d[w++] = static_cast<unsigned char>(0x80 | ((c >> 12) & 0x3F));
      d[w++] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
      d[w++] = static_cast<unsigned char>(0x80 | (c & 0x3F));
    } else {
      return ~0u;
    }
  }
  return w;
}

}  // namespace detail
}  // namespace qio
