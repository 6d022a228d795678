/// \class qsa::cSerializeBinaryShared
/// What the binary writer and reader share: the element type ids and their
/// names, and the little-endian reads and writes of the fixed-width fields.
#ifndef QELCORE_SA_CSERIALIZEBINARYSHARED_H
#define QELCORE_SA_CSERIALIZEBINARYSHARED_H

#include <cstring>

#include "qelcore/qelexport.h"

namespace qsa {

class QEL_EXPORT cSerializeBinaryShared {
public:
  /// Every element starts with one of these as a 4-byte little-endian number.
  enum PrivatedTypeIDs : unsigned int {
    idInvalid = 0,
    idRawBytes = 1,
    idUChar = 2,
    idChar = 3,
    idUInt32 = 4,
    idInt32 = 5,
    idUInt64 = 6,
    idInt64 = 7,
    idBool = 8,
    idDouble = 9,
    idAsciiString = 10,
    idString = 11,
    idContext = 12,
    idLabel = 13,
    idRawBytes64 = 14,
    idContext64 = 15,
    idStringUTF8 = 16,
    idUInt16 = 17,
    idInt16 = 18,
    idInvalidLast = 19
  };

  ///@{
  /// "unknown type" for ids past the table.
  static const char* idToString(PrivatedTypeIDs id);
  static const char* idToString(unsigned int id) { return idToString(static_cast<PrivatedTypeIDs>(id)); }
  ///@}

protected:
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ || defined(_WIN32)
  /// The archive's byte order is the machine's: single unaligned moves.
  static void put32(char* p, unsigned int v) { std::memcpy(p, &v, 4); }
  static void put16(char* p, unsigned short v) { std::memcpy(p, &v, 2); }
  static void put64(char* p, unsigned long long v) { std::memcpy(p, &v, 8); }
  static unsigned int get32(const char* p) {
    unsigned int v;
    std::memcpy(&v, p, 4);
    return v;
  }
  static unsigned short get16(const char* p) {
    unsigned short v;
    std::memcpy(&v, p, 2);
    return v;
  }
  static unsigned long long get64(const char* p) {
    unsigned long long v;
    std::memcpy(&v, p, 8);
    return v;
  }
#if defined(__GNUC__)
  /// An unaligned 64-bit store as its own type. A memcpy is a character access
  /// and may alias anything, so after it the compiler reloads the writer's
  /// position and buffer; a store of this type cannot change them, and a run of
  /// elements keeps them in registers.
  typedef unsigned long long tUnaligned64 __attribute__((aligned(1)));
  static void store64(char* p, unsigned long long v) { *reinterpret_cast<tUnaligned64*>(p) = v; }
#else
  static void store64(char* p, unsigned long long v) { std::memcpy(p, &v, 8); }
#endif
  /// Copies n bytes; short runs (8 to 16 bytes, names and keys mostly) as two
  /// overlapping 64-bit moves, which keep the writer's state in registers as
  /// the element stores do.
  static void copyBytes(char* dst, const char* src, unsigned int n) {
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
  /// A type id with a 32-bit payload behind it, as one 8-byte move.
  static void putTagged32(char* p, unsigned int id, unsigned int v) {
    store64(p, id | (static_cast<unsigned long long>(v) << 32));
  }
  /// A type id with a 64-bit payload behind it, as two overlapping 8-byte moves.
  static void putTagged64(char* p, unsigned int id, unsigned long long v) {
    store64(p, id | (v << 32));
    store64(p + 4, v);
  }
#else
  /// Writes `v` at `p`, little-endian.
  static void put32(char* p, unsigned int v) {
    p[0] = static_cast<char>(v);
    p[1] = static_cast<char>(v >> 8);
    p[2] = static_cast<char>(v >> 16);
    p[3] = static_cast<char>(v >> 24);
  }
  /// Writes `v` at `p`, little-endian.
  static void put16(char* p, unsigned short v) {
    p[0] = static_cast<char>(v);
    p[1] = static_cast<char>(v >> 8);
  }
  /// Writes `v` at `p`, little-endian.
  static void put64(char* p, unsigned long long v) {
    put32(p, static_cast<unsigned int>(v));
    put32(p + 4, static_cast<unsigned int>(v >> 32));
  }
  /// Reads a little-endian value at `p`.
  static unsigned int get32(const char* p) {
    const unsigned char* u = reinterpret_cast<const unsigned char*>(p);
    return static_cast<unsigned int>(u[0]) | (static_cast<unsigned int>(u[1]) << 8) |
           (static_cast<unsigned int>(u[2]) << 16) | (static_cast<unsigned int>(u[3]) << 24);
  }
  /// Reads a little-endian value at `p`.
  static unsigned short get16(const char* p) {
    const unsigned char* u = reinterpret_cast<const unsigned char*>(p);
    return static_cast<unsigned short>(u[0] | (u[1] << 8));
  }
  /// Reads a little-endian value at `p`.
  static unsigned long long get64(const char* p) {
    return static_cast<unsigned long long>(get32(p)) | (static_cast<unsigned long long>(get32(p + 4)) << 32);
  }
  /// A type id with a 32-bit payload behind it.
  static void putTagged32(char* p, unsigned int id, unsigned int v) {
    put32(p, id);
    put32(p + 4, v);
  }
  /// A type id with a 64-bit payload behind it.
  static void putTagged64(char* p, unsigned int id, unsigned long long v) {
    put32(p, id);
    put64(p + 4, v);
  }
#endif
  /// The bits of `d`.
  static unsigned long long doubleBits(double d) {
    unsigned long long v;
    std::memcpy(&v, &d, sizeof v);
    return v;
  }
  /// The payload bits of a fixed-width value.
  static unsigned long long bitsOf(int v) { return static_cast<unsigned int>(v); }
  /// The payload bits of a fixed-width value.
  static unsigned long long bitsOf(unsigned int v) { return v; }
  /// The payload bits of a fixed-width value.
  static unsigned long long bitsOf(long long v) { return static_cast<unsigned long long>(v); }
  /// The payload bits of a fixed-width value.
  static unsigned long long bitsOf(unsigned long long v) { return v; }
  /// The payload bits of a fixed-width value.
  static unsigned long long bitsOf(double v) { return doubleBits(v); }
  /// The value of payload bits.
  static void fromBits(unsigned long long b, int& v) { v = static_cast<int>(static_cast<unsigned int>(b)); }
  /// The value of payload bits.
  static void fromBits(unsigned long long b, unsigned int& v) { v = static_cast<unsigned int>(b); }
  /// The value of payload bits.
  static void fromBits(unsigned long long b, long long& v) { v = static_cast<long long>(b); }
  /// The value of payload bits.
  static void fromBits(unsigned long long b, unsigned long long& v) { v = b; }
  /// The value of payload bits.
  static void fromBits(unsigned long long b, double& v) { std::memcpy(&v, &b, sizeof v); }
  /// The double of the bits `v`.
  static double bitsDouble(unsigned long long v) {
    double d;
    std::memcpy(&d, &v, sizeof d);
    return d;
  }
};

}  // namespace qsa

#endif
