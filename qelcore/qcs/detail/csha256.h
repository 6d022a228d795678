// SHA-256 and HMAC-SHA-256, for the challenge and response with which remote
// peers prove that they know the shared secret. Self-contained: the library
// depends on no cryptography package.
//
//   qcs::detail::cSha256 h;
//   h.update("abc", 3);
//   unsigned char digest[qcs::detail::cSha256::DigestSize];
//   h.finish(digest);
#ifndef QELCORE_QCS_DETAIL_CSHA256_H
#define QELCORE_QCS_DETAIL_CSHA256_H

#include <cstddef>
#include <cstdint>

#include "qelcore/qelexport.h"

namespace qcs {
namespace detail {

/// Incremental SHA-256 (FIPS 180-4).
class QEL_EXPORT cSha256 {
public:
  enum : unsigned int { DigestSize = 32, BlockSize = 64 };

  cSha256();
  /// Adds `size` bytes to the message.
  void update(const void* data, std::size_t size);
  /// Pads the message and writes the digest; the object starts over afterwards.
  void finish(unsigned char digest[DigestSize]);

private:
  void compress(const unsigned char* block);
  void reset();

  std::uint32_t maState[8];
  unsigned char maBlock[BlockSize];
  std::size_t miFill;
  std::uint64_t miLength;
};

/// HMAC-SHA-256 (RFC 2104) of one message that may be given in pieces.
class QEL_EXPORT cHmacSha256 {
public:
  cHmacSha256(const void* key, std::size_t keySize);
  ~cHmacSha256();
  void update(const void* data, std::size_t size) { mInner.update(data, size); }
  void finish(unsigned char mac[cSha256::DigestSize]);

private:
  cSha256 mInner;
  unsigned char maOuterPad[cSha256::BlockSize];
};

/// Compares two byte runs of equal length in a time that does not depend on
/// where they differ.
QEL_EXPORT bool equalConstantTime(const unsigned char* a, const unsigned char* b, std::size_t size);

/// Overwrites `size` bytes with zeros in a way the compiler does not drop.
QEL_EXPORT void wipe(void* data, std::size_t size);

}  // namespace detail
}  // namespace qcs

#endif
