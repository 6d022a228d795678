#include "qelcore/qcs/detail/csha256.h"

#include <cstring>

namespace qcs {
namespace detail {

namespace {

const std::uint32_t kRound[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

inline std::uint32_t rotr(std::uint32_t x, unsigned int n) { return (x >> n) | (x << (32 - n)); }

}  // namespace

cSha256::cSha256() { reset(); }

void cSha256::reset() {
  static const std::uint32_t initial[8] = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                           0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::memcpy(maState, initial, sizeof(maState));
  miFill = 0;
  miLength = 0;
}

void cSha256::compress(const unsigned char* block) {
  std::uint32_t w[64];
  for (unsigned int i = 0; i < 16; ++i)
    w[i] = (std::uint32_t(block[4 * i]) << 24) | (std::uint32_t(block[4 * i + 1]) << 16) |
           (std::uint32_t(block[4 * i + 2]) << 8) | std::uint32_t(block[4 * i + 3]);
  for (unsigned int i = 16; i < 64; ++i) {
    const std::uint32_t s0 = rotr(w[i - 15], 7) ^ rotr(w[i - 15], 18) ^ (w[i - 15] >> 3);
    const std::uint32_t s1 = rotr(w[i - 2], 17) ^ rotr(w[i - 2], 19) ^ (w[i - 2] >> 10);
    w[i] = w[i - 16] + s0 + w[i - 7] + s1;
  }
  std::uint32_t a = maState[0], b = maState[1], c = maState[2], d = maState[3];
  std::uint32_t e = maState[4], f = maState[5], g = maState[6], h = maState[7];
  for (unsigned int i = 0; i < 64; ++i) {
    const std::uint32_t t1 = h + (rotr(e, 6) ^ rotr(e, 11) ^ rotr(e, 25)) + ((e & f) ^ (~e & g)) + kRound[i] + w[i];
    const std::uint32_t t2 = (rotr(a, 2) ^ rotr(a, 13) ^ rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
    h = g;
    g = f;
    f = e;
    e = d + t1;
    d = c;
    c = b;
    b = a;
    a = t1 + t2;
  }
  maState[0] += a;
  maState[1] += b;
  maState[2] += c;
  maState[3] += d;
  maState[4] += e;
  maState[5] += f;
  maState[6] += g;
  maState[7] += h;
}

void cSha256::update(const void* data, std::size_t size) {
  const unsigned char* p = static_cast<const unsigned char*>(data);
  miLength += size;
  while (size > 0) {
    if (miFill == 0 && size >= BlockSize) {
      compress(p);
      p += BlockSize;
      size -= BlockSize;
      continue;
    }
    const std::size_t n = size < BlockSize - miFill ? size : BlockSize - miFill;
    std::memcpy(maBlock + miFill, p, n);
    miFill += n;
    p += n;
    size -= n;
    if (miFill == BlockSize) {
      compress(maBlock);
      miFill = 0;
    }
  }
}

void cSha256::finish(unsigned char digest[DigestSize]) {
  const std::uint64_t bits = miLength * 8;
  maBlock[miFill++] = 0x80;
  if (miFill > BlockSize - 8) {
    std::memset(maBlock + miFill, 0, BlockSize - miFill);
    compress(maBlock);
    miFill = 0;
  }
  std::memset(maBlock + miFill, 0, BlockSize - 8 - miFill);
  for (unsigned int i = 0; i < 8; ++i) maBlock[BlockSize - 1 - i] = static_cast<unsigned char>(bits >> (8 * i));
  compress(maBlock);
  for (unsigned int i = 0; i < 8; ++i)
    for (unsigned int j = 0; j < 4; ++j) digest[4 * i + j] = static_cast<unsigned char>(maState[i] >> (24 - 8 * j));
  wipe(maBlock, sizeof(maBlock));
  reset();
}

cHmacSha256::cHmacSha256(const void* key, std::size_t keySize) {
  unsigned char block[cSha256::BlockSize] = {};
  if (keySize > cSha256::BlockSize) {
    cSha256 h;
    h.update(key, keySize);
    h.finish(block);
  } else if (keySize > 0) {
    std::memcpy(block, key, keySize);
  }
  unsigned char inner[cSha256::BlockSize];
  for (unsigned int i = 0; i < cSha256::BlockSize; ++i) {
    inner[i] = block[i] ^ 0x36;
    maOuterPad[i] = block[i] ^ 0x5c;
  }
  mInner.update(inner, sizeof(inner));
  wipe(inner, sizeof(inner));
  wipe(block, sizeof(block));
}

cHmacSha256::~cHmacSha256() { wipe(maOuterPad, sizeof(maOuterPad)); }

void cHmacSha256::finish(unsigned char mac[cSha256::DigestSize]) {
  unsigned char inner[cSha256::DigestSize];
  mInner.finish(inner);
  cSha256 outer;
  outer.update(maOuterPad, sizeof(maOuterPad));
  outer.update(inner, sizeof(inner));
  outer.finish(mac);
  wipe(inner, sizeof(inner));
}

bool equalConstantTime(const unsigned char* a, const unsigned char* b, std::size_t size) {
  unsigned char diff = 0;
  for (std::size_t i = 0; i < size; ++i) diff = static_cast<unsigned char>(diff | (a[i] ^ b[i]));
  return diff == 0;
}

void wipe(void* data, std::size_t size) {
  volatile unsigned char* p = static_cast<volatile unsigned char*>(data);
  while (size--) *p++ = 0;
}

}  // namespace detail
}  // namespace qcs
