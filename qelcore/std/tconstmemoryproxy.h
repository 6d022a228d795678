/// \class qstd::tConstMemoryProxy
/// A read-only array proxy over elements in memory that the caller owns, so
/// that views (tConstArrayRef) and everything that takes them, such as the
/// decoders, work on raw memory without copying it into an array first:
///
/// \code
///   qstd::tConstMemoryProxy<char> memory(bytes, length);
///   endec.decode(qstd::tConstArrayRef<char>(memory), text);
/// \endcode
///
/// The memory must outlive the proxy and every view onto it.
#ifndef QELCORE_STD_TCONSTMEMORYPROXY_H
#define QELCORE_STD_TCONSTMEMORYPROXY_H

#include <cstring>

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tabstractconstarrayproxy.h"
#include "qelcore/std/tarrayops.h"

namespace qstd {

template <typename T>
class tConstMemoryProxy : public tAbstractConstArrayProxy<T> {
public:
  /// `n` elements from `elements` (which may be null when n is 0).
  tConstMemoryProxy(const T* elements, unsigned int n) : mpElements(elements), miLength(n) {
    QEL_ASSERT(elements != 0 || n == 0, "std/tconstmemoryproxy");
  }

  const T& proxyAt(unsigned int index) const override {
    arrayops::checkIndex("tConstMemoryProxy", "proxyAt", index, miLength);
    return mpElements[index];
  }
  /// The number of elements viewed.
  unsigned int proxyLength() const override { return miLength; }
  void proxyCopyPartTo(T* dest, unsigned int index, unsigned int count) const override {
    arrayops::checkRange("tConstMemoryProxy", "proxyCopyPartTo", index, count, miLength);
    if (count > 0) std::memcpy(dest, mpElements + index, static_cast<std::size_t>(count) * sizeof(T));
  }
  const T* proxyProvideData(unsigned int index, unsigned int count) const override {
    arrayops::checkRange("tConstMemoryProxy", "provideData", index, count, miLength);
    return mpElements == nullptr ? nullptr : mpElements + index;
  }
  unsigned int proxyPreferredBlockSize() const override { return 0; }
  const tAbstractConstArrayProxy<T>* constProxyPhysical(unsigned int& offset) const override {
    offset = 0;
    return this;
  }

private:
  const T* mpElements;
  unsigned int miLength;
};

}  // namespace qstd

#endif
