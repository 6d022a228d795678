// Byte helpers shared by the archive tests.
#ifndef QELCORE_TESTS_SA_ARCHIVETESTUTIL_H
#define QELCORE_TESTS_SA_ARCHIVETESTUTIL_H

#include <initializer_list>
#include <vector>

#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/tarray.h"

namespace satest {

typedef std::vector<unsigned char> Bytes;

inline Bytes bytesOf(qsa::cSerializeBinary& s) {
  qstd::tArrayRef<char> d = s.data();
  Bytes out;
  for (unsigned int i = 0; i < d.size(); ++i) out.push_back(static_cast<unsigned char>(d[i]));
  return out;
}

// Little-endian 32-bit words and single bytes, concatenated.
inline void u32(Bytes& b, unsigned int v) {
  for (int i = 0; i < 4; ++i) b.push_back(static_cast<unsigned char>(v >> (8 * i)));
}
inline void u64(Bytes& b, unsigned long long v) {
  for (int i = 0; i < 8; ++i) b.push_back(static_cast<unsigned char>(v >> (8 * i)));
}
inline Bytes words(std::initializer_list<unsigned int> list) {
  Bytes b;
  for (unsigned int v : list) u32(b, v);
  return b;
}
inline Bytes cat(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}
inline qstd::tArray<char> arrayOf(const Bytes& b) {
  return qstd::tArray<char>(reinterpret_cast<const char*>(b.data()), static_cast<unsigned int>(b.size()));
}

}  // namespace satest

#endif
