/// \class qstd::tAbstractArrayProxy
/// Write side of the array proxy interface.
#ifndef QELCORE_STD_TABSTRACTARRAYPROXY_H
#define QELCORE_STD_TABSTRACTARRAYPROXY_H

#include "qelcore/std/tabstractconstarrayproxy.h"

namespace qstd {

template <typename T>
class tAbstractArrayProxy : public tAbstractConstArrayProxy<T> {
public:
  using tAbstractConstArrayProxy<T>::proxyAt;

  /// Writable element at `index`.
  virtual T& proxyAt(unsigned int index) = 0;
  /// Writable pointer to `count` contiguous elements starting at `index`.
  virtual T* proxyProvideWriteableData(unsigned int index, unsigned int count) = 0;
  /// Overwrites `count` elements starting at `index` with those at `from`.
  virtual void proxyPatchData(unsigned int index, unsigned int count, const T* from) = 0;
  /// Grows or shrinks to `size` elements.
  virtual void proxySetSize(unsigned int size) = 0;
  /// Inserts `count` elements copied from `from` before `index`.
  virtual void proxyInsert(unsigned int index, const T* from, unsigned int count) = 0;
  /// Opens a gap of `count` elements at `index`; their content is unspecified.
  virtual void proxyInsertDefaultObjects(unsigned int index, unsigned int count) = 0;
  /// Removes `count` elements starting at `index`.
  virtual void proxyErase(unsigned int index, unsigned int count) = 0;
  /// The writable proxy that really holds the elements; `offset` receives where this proxy's element 0 lies inside it.
  virtual tAbstractArrayProxy<T>* proxyPhysical(unsigned int& offset) = 0;
};

}  // namespace qstd

#endif
