// File names as bytes: UTF-8 that every byte string survives.
//
// POSIX file names are byte strings that need not be UTF-8. Decoding turns
// valid UTF-8 into its characters and every byte that is not part of a valid
// sequence into U+DC80..U+DCFF (a lone surrogate, which valid UTF-8 never
// produces); encoding turns those back into the original bytes. So a name
// read from a directory names the same file when it is given back.
#ifndef QELCORE_IO_DETAIL_CNAMECODEC_H
#define QELCORE_IO_DETAIL_CNAMECODEC_H

namespace qucs {
class cString;
}

namespace qio {
namespace detail {

class cNameCodec {
public:
  // Appends the characters of `n` bytes to `out`.
  static void decode(const char* p, unsigned int n, qucs::cString& out);
  // Writes the bytes of `n` characters to `out`, which has room for 4 * n
  // bytes; returns the number written, or ~0u when a character has no byte
  // form in a file name (NUL, a surrogate that is not an escaped byte, a
  // value beyond U+10FFFF).
  static unsigned int encode(const unsigned int* p, unsigned int n, char* out);
};

}  // namespace detail
}  // namespace qio

#endif
