/// \class qstd::tAbstractConstArrayProxy
/// Read side of anything that holds elements in an array-like way. Views
/// (tConstArrayRef, tArrayRef) work through this interface so that algorithms
/// can run on part of an array without copying it.
#ifndef QELCORE_STD_TABSTRACTCONSTARRAYPROXY_H
#define QELCORE_STD_TABSTRACTCONSTARRAYPROXY_H

namespace qstd {

template <typename T>
class tAbstractConstArrayProxy {
public:
  virtual ~tAbstractConstArrayProxy() {}

  /// Element at `index` (checked).
  virtual const T& proxyAt(unsigned int index) const = 0;
  /// The number of elements.
  virtual unsigned int proxyLength() const = 0;
  /// Copies `count` elements starting at `index` to `dest`.
  virtual void proxyCopyPartTo(T* dest, unsigned int index, unsigned int count) const = 0;
  /// Pointer to `count` contiguous elements starting at `index`.
  virtual const T* proxyProvideData(unsigned int index, unsigned int count) const = 0;
  /// Preferred number of elements per block operation; 0 means no preference.
  virtual unsigned int proxyPreferredBlockSize() const = 0;
  /// The proxy that really holds the elements; `offset` receives where this
  /// proxy's element 0 lies inside it.
  virtual const tAbstractConstArrayProxy<T>* constProxyPhysical(unsigned int& offset) const = 0;

  /// Bytes per element.
  unsigned int elementSize() const { return static_cast<unsigned int>(sizeof(T)); }
};

}  // namespace qstd

#endif
