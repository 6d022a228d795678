/// \class qstd::tConstArrayRef
/// A read-only view (offset, length) onto any array proxy. The view neither
/// owns nor outlives its target; a default-constructed view has no target.
#ifndef QELCORE_STD_TCONSTARRAYREF_H
#define QELCORE_STD_TCONSTARRAYREF_H

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tabstractconstarrayproxy.h"
#include "qelcore/std/tarraybyteleveltraits.h"
#include "qelcore/std/tarrayops.h"
#include "qelcore/std/tarrayreadops.h"

namespace qstd {

template <typename T, typename Traits = tArrayByteLevelTraits<T>>
class tConstArrayRef : public tAbstractConstArrayProxy<T>, public tArrayReadOps<tConstArrayRef<T, Traits>, T> {
  typedef tArrayReadOps<tConstArrayRef<T, Traits>, T> tReadOps;
  friend tReadOps;

public:
  ///@{
  /// The element type and the traits.
  typedef T ElementType;
  typedef Traits TraitsType;
  ///@}

  ///@{
  /// find, contains, beginsWith, endsWith, isEqual (relative to the view): see
  /// tArrayReadOps.
  using tReadOps::beginsWith;
  using tReadOps::contains;
  using tReadOps::endsWith;
  using tReadOps::find;
  using tReadOps::isEqual;
  ///@}

  /// A view without target.
  tConstArrayRef() : mpData(nullptr), miOffset(0), miLength(0), miOpBlockSize(0) {}
  /// The whole target.
  tConstArrayRef(const tAbstractConstArrayProxy<T>& target)
      : mpData(nullptr), miOffset(0), miLength(0), miOpBlockSize(0) {
    set(target, 0);
  }
  /// From `offset` to the target's end.
  tConstArrayRef(const tAbstractConstArrayProxy<T>& target, unsigned int offset)
      : mpData(nullptr), miOffset(0), miLength(0), miOpBlockSize(0) {
    set(target, offset);
  }
  /// `length` elements from `offset` on.
  tConstArrayRef(const tAbstractConstArrayProxy<T>& target, unsigned int offset, unsigned int length)
      : mpData(nullptr), miOffset(0), miLength(0), miOpBlockSize(0) {
    set(target, offset, length);
  }
  ///@{
  /// Views copy as plain values: the copy shows the same elements.
  tConstArrayRef(const tConstArrayRef& other) = default;
  tConstArrayRef& operator=(const tConstArrayRef& other) = default;
  ///@}

  /// Views the target from `offset` to its end.
  void set(const tAbstractConstArrayProxy<T>& target, unsigned int offset) {
    const unsigned int length = target.proxyLength();
    arrayops::checkRange("tConstArrayRef", "set", offset, 0, length);
    set(target, offset, length - offset);
  }
  /// Views `length` elements of the target from `offset` on. Views onto views
  /// are resolved to the proxy that holds the elements. A range outside the
  /// target throws cOutOfBoundsException.
  void set(const tAbstractConstArrayProxy<T>& target, unsigned int offset, unsigned int length) {
    arrayops::checkRange("tConstArrayRef", "set", offset, length, target.proxyLength());
    unsigned int base = 0;
    const tAbstractConstArrayProxy<T>* physical = target.constProxyPhysical(base);
    mpData = physical;
    miOffset = base + offset;
    miLength = length;
    miOpBlockSize = target.proxyPreferredBlockSize();
  }
  /// Detaches the view from its target.
  void clear() {
    mpData = nullptr;
    miOffset = 0;
    miLength = 0;
    miOpBlockSize = 0;
  }
  /// Exchanges the two views.
  void swap(tConstArrayRef& other) {
    tConstArrayRef t(*this);
    *this = other;
    other = t;
  }

  /// The proxy that holds the elements, null without target.
  const tAbstractConstArrayProxy<T>* target() const { return mpData; }
  /// Where the view starts inside target().
  unsigned int offset() const { return miOffset; }
  ///@{
  /// The number of elements in the view.
  unsigned int size() const { return miLength; }
  unsigned int length() const { return miLength; }
  ///@}
  /// Whether the view is empty.
  bool empty() const { return miLength == 0; }
  ///@{
  /// Preferred number of elements per block operation; set() takes the target's.
  unsigned int opBlockSize() const { return miOpBlockSize; }
  void setOpBlockSize(unsigned int n) { miOpBlockSize = n; }
  ///@}

  ///@{
  /// Element at `index` of the view; at() checks the index (cOutOfRangeException), operator[] does not.
  const T& at(unsigned int index) const {
    QEL_ASSERT(mpData != 0, "std/tconstarrayref");
    arrayops::checkIndex("tConstArrayRef", "at", index, miLength);
    return mpData->proxyAt(miOffset + index);
  }
  const T& operator[](unsigned int index) const { return mpData->proxyAt(miOffset + index); }
  ///@}

  /// Contiguous elements of the view (null for an empty one).
  const T* data() const {
    QEL_ASSERT(mpData != 0, "std/tconstarrayref");
    return miLength == 0 ? nullptr : mpData->proxyProvideData(miOffset, miLength);
  }

  /// As tArray::relation; a view without target counts as never allocated.
  int relation(const T* p, unsigned int n) const {
    return arrayops::relation(mpData != nullptr, elements(), miLength, p, n);
  }
  /// As above, with the elements of `other`.
  int relation(const tConstArrayRef& other) const {
    return other.mpData == nullptr ? relation(nullptr, 0) : relation(other.elements(), other.miLength);
  }

  /// A view of part of this view.
  tConstArrayRef cut(unsigned int index, unsigned int count) const {
    QEL_ASSERT(mpData != 0, "std/tconstarrayref");
    arrayops::checkRange("tConstArrayRef", "cut", index, count, miLength);
    return tConstArrayRef(*mpData, miOffset + index, count);
  }

  /// The array proxy interface.
  const T& proxyAt(unsigned int index) const override { return at(index); }
  unsigned int proxyLength() const override { return miLength; }
  void proxyCopyPartTo(T* dest, unsigned int index, unsigned int count) const override {
    arrayops::checkRange("tConstArrayRef", "proxyCopyPartTo", index, count, miLength);
    if (count > 0) {
      QEL_ASSERT(mpData != 0, "std/tconstarrayref");
      mpData->proxyCopyPartTo(dest, miOffset + index, count);
    }
  }
  const T* proxyProvideData(unsigned int index, unsigned int count) const override {
    arrayops::checkRange("tConstArrayRef", "provideData", index, count, miLength);
    QEL_ASSERT(mpData != 0, "std/tconstarrayref");
    return mpData->proxyProvideData(miOffset + index, count);
  }
  unsigned int proxyPreferredBlockSize() const override { return miOpBlockSize; }
  const tAbstractConstArrayProxy<T>* constProxyPhysical(unsigned int& offset) const override {
    if (mpData == nullptr) {
      offset = 0;
      return this;
    }
    offset = miOffset;
    return mpData;
  }

private:
  const T* readElements() const { return elements(); }
  unsigned int readLength() const { return miLength; }
  static const char* readClassName() { return "tConstArrayRef"; }
  static const char* readSource() { return "std/tconstarrayref"; }
  /// Start of the view's elements, null when there are none.
  const T* elements() const {
    return (mpData == nullptr || miLength == 0) ? nullptr : mpData->proxyProvideData(miOffset, miLength);
  }

  const tAbstractConstArrayProxy<T>* mpData;
  unsigned int miOffset;
  unsigned int miLength;
  unsigned int miOpBlockSize;
};

}  // namespace qstd

#endif
