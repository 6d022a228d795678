// Little-endian reads and writes of the binary archive's fixed-width fields.
// Private to the archive sources.
#ifndef QELCORE_SA_CBINARYBYTES_H
#define QELCORE_SA_CBINARYBYTES_H

#include <cstring>

namespace qsa {
namespace binarybytes {

#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ || defined(_WIN32)
// The archive's byte order is the machine's: single unaligned moves.
inline void put32(char* p, unsigned int v) { std::memcpy(p, &v, 4); }
inline void put16(char* p, unsigned short v) { std::memcpy(p, &v, 2); }
inline void put64(char* p, unsigned long long v) { std::memcpy(p, &v, 8); }
inline unsigned int get32(const char* p) {
  unsigned int v;
  std::memcpy(&v, p, 4);
  return v;
}
inline unsigned short get16(const char* p) {
  unsigned short v;
  std::memcpy(&v, p, 2);
  return v;
}
inline unsigned long long get64(const char* p) {
  unsigned long long v;
  std::memcpy(&v, p, 8);
  return v;
}
#if defined(__GNUC__)
// An unaligned 64-bit store as its own type. A memcpy is a character access
// and may alias anything, so after it the compiler reloads the writer's
// position and buffer; a store of this type cannot change them, and a run of
// elements keeps them in registers.
typedef unsigned long long tUnaligned64 __attribute__((aligned(1)));
inline void store64(char* p, unsigned long long v) { *reinterpret_cast<tUnaligned64*>(p) = v; }
#else
inline void store64(char* p, unsigned long long v) { std::memcpy(p, &v, 8); }
#endif
// Copies n bytes; short runs (8 to 16 bytes, names and keys mostly) as two
// overlapping 64-bit moves, which keep the writer's state in registers as
// the element stores do.
inline void copyBytes(char* dst, const char* src, unsigned int n) {
  if (n >= 8 && n <= 16) {
    unsigned long long head, tail;
    std::memcpy(&head, src, 8);
    std::memcpy(&tail, src + n - 8, 8);
    store64(dst, head);
    store64(dst + n - 8, tail);
  } else if (n) {
    std::memcpy(dst, src, n);
  }
}
// A type id with a 32-bit payload behind it, as one 8-byte move.
inline void putTagged32(char* p, unsigned int id, unsigned int v) {
  store64(p, id | (static_cast<unsigned long long>(v) << 32));
}
// A type id with a 64-bit payload behind it, as two overlapping 8-byte moves.
inline void putTagged64(char* p, unsigned int id, unsigned long long v) {
  store64(p, id | (v << 32));
  store64(p + 4, v);
}
#else
inline void put32(char* p, unsigned int v) {
  p[0] = static_cast<char>(v);
  p[1] = static_cast<char>(v >> 8);
  p[2] = static_cast<char>(v >> 16);
  p[3] = static_cast<char>(v >> 24);
}
inline void put16(char* p, unsigned short v) {
  p[0] = static_cast<char>(v);
  p[1] = static_cast<char>(v >> 8);
}
inline void put64(char* p, unsigned long long v) {
  put32(p, static_cast<unsigned int>(v));
  put32(p + 4, static_cast<unsigned int>(v >> 32));
}
inline unsigned int get32(const char* p) {
  const unsigned char* u = reinterpret_cast<const unsigned char*>(p);
  return static_cast<unsigned int>(u[0]) | (static_cast<unsigned int>(u[1]) << 8) |
         (static_cast<unsigned int>(u[2]) << 16) | (static_cast<unsigned int>(u[3]) << 24);
}
inline unsigned short get16(const char* p) {
  const unsigned char* u = reinterpret_cast<const unsigned char*>(p);
  return static_cast<unsigned short>(u[0] | (u[1] << 8));
}
inline unsigned long long get64(const char* p) {
  return static_cast<unsigned long long>(get32(p)) | (static_cast<unsigned long long>(get32(p + 4)) << 32);
}
inline void putTagged32(char* p, unsigned int id, unsigned int v) {
  put32(p, id);
  put32(p + 4, v);
}
inline void putTagged64(char* p, unsigned int id, unsigned long long v) {
  put32(p, id);
  put64(p + 4, v);
}
#endif
inline unsigned long long doubleBits(double d) {
  unsigned long long v;
  std::memcpy(&v, &d, sizeof v);
  return v;
}
// The payload bits of a fixed-width value.
inline unsigned long long bitsOf(int v) { return static_cast<unsigned int>(v); }
inline unsigned long long bitsOf(unsigned int v) { return v; }
inline unsigned long long bitsOf(long long v) { return static_cast<unsigned long long>(v); }
inline unsigned long long bitsOf(unsigned long long v) { return v; }
inline unsigned long long bitsOf(double v) { return doubleBits(v); }
inline void fromBits(unsigned long long b, int& v) { v = static_cast<int>(static_cast<unsigned int>(b)); }
inline void fromBits(unsigned long long b, unsigned int& v) { v = static_cast<unsigned int>(b); }
inline void fromBits(unsigned long long b, long long& v) { v = static_cast<long long>(b); }
inline void fromBits(unsigned long long b, unsigned long long& v) { v = b; }
inline void fromBits(unsigned long long b, double& v) { std::memcpy(&v, &b, sizeof v); }
inline double bitsDouble(unsigned long long v) {
  double d;
  std::memcpy(&d, &v, sizeof d);
  return d;
}

}  // namespace binarybytes
}  // namespace qsa

#endif
