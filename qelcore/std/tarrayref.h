/// \class qstd::tArrayRef
/// A writable view (offset, length) onto any array proxy. Changes go to the
/// target at offset + index, and the view's length follows them. The view
/// neither owns nor outlives its target.
#ifndef QELCORE_STD_TARRAYREF_H
#define QELCORE_STD_TARRAYREF_H

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tabstractarrayproxy.h"
#include "qelcore/std/tarraybyteleveltraits.h"
#include "qelcore/std/tarrayops.h"
#include "qelcore/std/tarrayreadops.h"
#include "qelcore/std/tconstarrayref.h"

namespace qstd {

template <typename T, typename Traits = tArrayByteLevelTraits<T>>
class tArrayRef : public tAbstractArrayProxy<T>, public tArrayReadOps<tArrayRef<T, Traits>, T> {
  typedef tArrayReadOps<tArrayRef<T, Traits>, T> tReadOps;
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
  tArrayRef() : mpData(nullptr), miOffset(0), miLength(0), miOpBlockSize(0) {}
  /// The whole target.
  tArrayRef(tAbstractArrayProxy<T>& target) : mpData(nullptr), miOffset(0), miLength(0), miOpBlockSize(0) {
    set(target, 0);
  }
  /// From `offset` to the target's end.
  tArrayRef(tAbstractArrayProxy<T>& target, unsigned int offset)
      : mpData(nullptr), miOffset(0), miLength(0), miOpBlockSize(0) {
    set(target, offset);
  }
  /// `length` elements from `offset` on.
  tArrayRef(tAbstractArrayProxy<T>& target, unsigned int offset, unsigned int length)
      : mpData(nullptr), miOffset(0), miLength(0), miOpBlockSize(0) {
    set(target, offset, length);
  }
  ///@{
  /// Views copy as plain values: the copy shows the same elements.
  tArrayRef(const tArrayRef& other) = default;
  tArrayRef& operator=(const tArrayRef& other) = default;
  ///@}

  /// Views the target from `offset` to its end; an offset beyond it throws cOutOfBoundsException.
  void set(tAbstractArrayProxy<T>& target, unsigned int offset) {
    const unsigned int length = target.proxyLength();
    arrayops::checkRange("tArrayRef", "set", offset, 0, length);
    set(target, offset, length - offset);
  }
  /// Views `length` elements of the target from `offset` on; views onto views are resolved to the proxy that holds the
  /// elements. A range outside the target throws cOutOfBoundsException.
  void set(tAbstractArrayProxy<T>& target, unsigned int offset, unsigned int length) {
    arrayops::checkRange("tArrayRef", "set", offset, length, target.proxyLength());
    unsigned int base = 0;
    tAbstractArrayProxy<T>* physical = target.proxyPhysical(base);
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
  void swap(tArrayRef& other) {
    tArrayRef t(*this);
    *this = other;
    other = t;
  }

  /// The proxy that holds the elements, null without target.
  tAbstractArrayProxy<T>* target() const { return mpData; }
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

  /// The same view, read-only.
  tConstArrayRef<T, Traits> constRef() const {
    return mpData == nullptr ? tConstArrayRef<T, Traits>() : tConstArrayRef<T, Traits>(*mpData, miOffset, miLength);
  }

  ///@{
  /// Element at `index` of the view; at() checks the index (cOutOfRangeException), operator[] does not.
  const T& at(unsigned int index) const {
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    arrayops::checkIndex("tArrayRef", "at", index, miLength);
    return static_cast<const tAbstractArrayProxy<T>*>(mpData)->proxyAt(miOffset + index);
  }
  T& at(unsigned int index) {
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    arrayops::checkIndex("tArrayRef", "at", index, miLength);
    return mpData->proxyAt(miOffset + index);
  }
  const T& operator[](unsigned int index) const {
    return static_cast<const tAbstractArrayProxy<T>*>(mpData)->proxyAt(miOffset + index);
  }
  T& operator[](unsigned int index) { return mpData->proxyAt(miOffset + index); }
  ///@}

  ///@{
  /// Contiguous elements of the view (null for an empty one).
  T* data() {
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    return miLength == 0 ? nullptr : mpData->proxyProvideWriteableData(miOffset, miLength);
  }
  const T* data() const {
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    return elements();
  }
  ///@}

  ///@{
  /// As tArray::relation; a view without target counts as never allocated.
  int relation(const T* p, unsigned int n) const {
    return arrayops::relation(mpData != nullptr, elements(), miLength, p, n);
  }
  int relation(const tArrayRef& other) const {
    return other.mpData == nullptr ? relation(nullptr, 0) : relation(other.elements(), other.miLength);
  }
  ///@}

  /// A view of part of this view; a range outside it throws cOutOfBoundsException.
  tArrayRef cut(unsigned int index, unsigned int count) const {
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    arrayops::checkRange("tArrayRef", "cut", index, count, miLength);
    return tArrayRef(*mpData, miOffset + index, count);
  }

  ///@{
  /// Changes, forwarded to the target; each returns like its tArray
  /// counterpart.
  unsigned int append(const T& value) {
    const T copy = value;
    return append(&copy, 1);
  }
  unsigned int append(const T* pFrom, unsigned int n) {
    if (n > 0) {
      QEL_ASSERT(pFrom != 0, "std/tarrayref");
    }
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    arrayops::checkGrowth("tArrayRef", "append", miLength, n);
    const unsigned int at = miLength;
    mpData->proxyInsert(miOffset + miLength, pFrom, n);
    miLength += n;
    return at;
  }
  void insert(unsigned int at, const T* pFrom, unsigned int n) {
    if (n > 0) {
      QEL_ASSERT(pFrom != 0, "std/tarrayref");
    }
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    arrayops::checkPosition("tArrayRef", "insert", at, miLength);
    arrayops::checkGrowth("tArrayRef", "insert", miLength, n);
    mpData->proxyInsert(miOffset + at, pFrom, n);
    miLength += n;
  }
  void erase(unsigned int index, unsigned int count) {
    arrayops::checkRange("tArrayRef", "erase", index, count, miLength);
    if (count == 0) {
      return;
    }
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    mpData->proxyErase(miOffset + index, count);
    miLength -= count;
  }
  void fill(const T& value) { fill(0, value, miLength); }
  void fill(unsigned int index, const T& value, unsigned int count) {
    arrayops::checkRange("tArrayRef", "fill", index, count, miLength);
    if (count == 0) {
      return;
    }
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    T* p = mpData->proxyProvideWriteableData(miOffset + index, count);
    for (unsigned int i = 0; i < count; ++i) {
      p[i] = value;
    }
  }
  ///@}
  /// Grows the view by opening a gap at its end, or shrinks it by erasing its
  /// tail; the rest of the target moves along.
  void setSize(unsigned int n) {
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    if (n > miLength) {
      mpData->proxyInsertDefaultObjects(miOffset + miLength, n - miLength);
    } else if (n < miLength) {
      mpData->proxyErase(miOffset + n, miLength - n);
    }
    miLength = n;
  }
  /// Shrinks the view to `n` elements; an `n` beyond the length throws.
  void truncate(unsigned int n) {
    arrayops::checkPosition("tArrayRef", "truncate", n, miLength);
    if (n < miLength) {
      setSize(n);
    }
  }

  /// The array proxy interface.
  const T& proxyAt(unsigned int index) const override { return at(index); }
  unsigned int proxyLength() const override { return miLength; }
  void proxyCopyPartTo(T* dest, unsigned int index, unsigned int count) const override {
    arrayops::checkRange("tArrayRef", "proxyCopyPartTo", index, count, miLength);
    if (count > 0) {
      QEL_ASSERT(mpData != 0, "std/tarrayref");
      mpData->proxyCopyPartTo(dest, miOffset + index, count);
    }
  }
  const T* proxyProvideData(unsigned int index, unsigned int count) const override {
    arrayops::checkRange("tArrayRef", "provideData", index, count, miLength);
    QEL_ASSERT(mpData != 0, "std/tarrayref");
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
  T& proxyAt(unsigned int index) override { return at(index); }
  T* proxyProvideWriteableData(unsigned int index, unsigned int count) override {
    arrayops::checkRange("tArrayRef", "provideWriteableData", index, count, miLength);
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    return mpData->proxyProvideWriteableData(miOffset + index, count);
  }
  void proxyPatchData(unsigned int index, unsigned int count, const T* from) override {
    arrayops::checkRange("tArrayRef", "proxyPatchData", index, count, miLength);
    if (count > 0) {
      QEL_ASSERT(mpData != 0, "std/tarrayref");
      mpData->proxyPatchData(miOffset + index, count, from);
    }
  }
  void proxySetSize(unsigned int size) override { setSize(size); }
  void proxyInsert(unsigned int index, const T* from, unsigned int count) override { insert(index, from, count); }
  void proxyInsertDefaultObjects(unsigned int index, unsigned int count) override {
    QEL_ASSERT(mpData != 0, "std/tarrayref");
    arrayops::checkPosition("tArrayRef", "proxyInsertDefaultObjects", index, miLength);
    arrayops::checkGrowth("tArrayRef", "proxyInsertDefaultObjects", miLength, count);
    mpData->proxyInsertDefaultObjects(miOffset + index, count);
    miLength += count;
  }
  void proxyErase(unsigned int index, unsigned int count) override { erase(index, count); }
  tAbstractArrayProxy<T>* proxyPhysical(unsigned int& offset) override {
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
  static const char* readClassName() { return "tArrayRef"; }
  static const char* readSource() { return "std/tarrayref"; }
  const T* elements() const {
    return (mpData == nullptr || miLength == 0)
               ? nullptr
               : static_cast<const tAbstractArrayProxy<T>*>(mpData)->proxyProvideData(miOffset, miLength);
  }

  tAbstractArrayProxy<T>* mpData;
  unsigned int miOffset;
  unsigned int miLength;
  unsigned int miOpBlockSize;
};

}  // namespace qstd

#endif
