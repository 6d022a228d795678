/// \class qstd::tArray
/// The growable, exclusively owned element buffer under every string and byte
/// buffer of the library.
///
/// The pool grows in sectors of 2^growStep elements (default 32), never by
/// doubling: callers that build big buffers raise the grow step first.
/// Shrinking operations give memory back unless fit-on-erase is switched off.
/// Elements must be trivially copyable; they are moved as plain memory.
#ifndef QELCORE_STD_TARRAY_H
#define QELCORE_STD_TARRAY_H

#include <cstdint>
#include <cstring>

#include "qelcore/std/cpoolmemory.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tabstractarrayproxy.h"
#include "qelcore/std/tarrayasciistringtraits.h"
#include "qelcore/std/tarraybyteleveltraits.h"
#include "qelcore/std/tarrayops.h"
#include "qelcore/std/tarrayreadops.h"

#if defined(__GNUC__)
#define QELCORE_STD_TARRAY_LIKELY(x) __builtin_expect(!!(x), 1)
#else
#define QELCORE_STD_TARRAY_LIKELY(x) (x)
#endif

namespace qstd {

template <typename T, typename Traits = tArrayByteLevelTraits<T>>
class tArray : public tAbstractArrayProxy<T>, public tArrayReadOps<tArray<T, Traits>, T> {
  static_assert(__is_trivially_copyable(T), "tArray moves its elements as plain memory");
  typedef tArrayReadOps<tArray<T, Traits>, T> tReadOps;
  friend tReadOps;

public:
  /// The element type.
  typedef T ElementType;
  /// The element traits (whether a terminating zero is kept, and the like).
  typedef Traits TraitsType;

  /// find, contains, beginsWith, endsWith, isEqual: see tArrayReadOps.
  using tReadOps::beginsWith;
  using tReadOps::contains;
  using tReadOps::endsWith;
  using tReadOps::find;
  using tReadOps::isEqual;

  /// The grow step of a new array: sectors of 2^5 = 32 elements.
  static constexpr unsigned int DefaultGrowStep = 5;

  /// An empty array.
  tArray()
      : mpPool(nullptr), miPoolSize(0), miGrowStep(DefaultGrowStep), miSize(0), mbFitOnErase(true), miAllocated(0) {
    resizePool(0, false);
  }
  /// `n` elements of unspecified content.
  explicit tArray(unsigned int n)
      : mpPool(nullptr), miPoolSize(0), miGrowStep(DefaultGrowStep), miSize(0), mbFitOnErase(true), miAllocated(0) {
    resizePool(n, false);
  }
  /// Copies a run terminated by a zero element.
  tArray(const T* pFrom)
      : mpPool(nullptr), miPoolSize(0), miGrowStep(DefaultGrowStep), miSize(0), mbFitOnErase(true), miAllocated(0) {
    QEL_ASSERT(pFrom != 0, "std/tarray");
    initFrom(pFrom, arrayops::terminatedLength(pFrom));
  }
  /// Copies `n` elements from `pFrom`.
  tArray(const T* pFrom, unsigned int n)
      : mpPool(nullptr), miPoolSize(0), miGrowStep(DefaultGrowStep), miSize(0), mbFitOnErase(true), miAllocated(0) {
    if (n > 0) {
      QEL_ASSERT(pFrom != 0, "std/tarray");
    }
    initFrom(pFrom, n);
  }
  /// A copy of `other`, with its grow step and fit-on-erase flag.
  tArray(const tArray& other)
      : mpPool(nullptr),
        miPoolSize(0),
        miGrowStep(other.miGrowStep),
        miSize(0),
        mbFitOnErase(other.mbFitOnErase),
        miAllocated(0) {
    initFrom(other.mpPool, other.miSize);
  }
  /// Takes the pool over; `other` is left empty without a pool.
  tArray(tArray&& other) noexcept
      : mpPool(other.mpPool),
        miPoolSize(other.miPoolSize),
        miGrowStep(other.miGrowStep),
        miSize(other.miSize),
        mbFitOnErase(other.mbFitOnErase),
        miAllocated(other.miAllocated) {
    other.mpPool = nullptr;
    other.miPoolSize = 0;
    other.miSize = 0;
    other.miAllocated = 0;
  }
  ~tArray() override {
    if (mpPool) cPoolMemory::release(mpPool);
  }

  /// Replaces the content and the settings with a copy of `other`.
  tArray& operator=(const tArray& other) {
    if (this != &other) {
      tArray copy(other);
      swap(copy);
    }
    return *this;
  }
  /// Takes the pool of `other` over; `other` is left empty without a pool.
  tArray& operator=(tArray&& other) noexcept {
    if (this != &other) {
      tArray taken(static_cast<tArray&&>(other));
      swap(taken);
    }
    return *this;
  }

  /// Exchanges contents and settings.
  void swap(tArray& other) noexcept {
    T* p = mpPool;
    mpPool = other.mpPool;
    other.mpPool = p;
    unsigned int u = miPoolSize;
    miPoolSize = other.miPoolSize;
    other.miPoolSize = u;
    u = miGrowStep;
    miGrowStep = other.miGrowStep;
    other.miGrowStep = u;
    u = miSize;
    miSize = other.miSize;
    other.miSize = u;
    const bool b = mbFitOnErase;
    mbFitOnErase = other.mbFitOnErase;
    other.mbFitOnErase = b;
    u = miAllocated;
    miAllocated = other.miAllocated;
    other.miAllocated = u;
  }

  /// Size 0 with a fitting pool (a string keeps one slot), whatever the
  /// fit-on-erase flag says. Does nothing on an empty array.
  void clear() {
    if (miSize != 0) {
      resizePool(0, true);
    }
  }

  /// The number of elements.
  unsigned int size() const { return miSize; }
  /// The same as size().
  unsigned int length() const { return miSize; }
  /// Whether there is none.
  bool empty() const { return miSize == 0; }
  /// Elements the pool holds, for containers built on tArray.
  unsigned int _poolSize() const { return miPoolSize; }

  /// The grow step: the pool grows in sectors of 2^growStep elements.
  unsigned int growStep() const { return miGrowStep; }
  /// Sets the grow step for the growth to come.
  void setGrowStep(unsigned int step) { miGrowStep = step; }
  /// Whether shrinking operations give memory back.
  bool fitOnErase() const { return mbFitOnErase; }
  /// Switches giving memory back on shrinking on or off.
  void setFitOnErase(bool fit) { mbFitOnErase = fit; }
  /// Cuts the pool to exactly the current size.
  void optimizeMemory() { resizePool(miSize, true); }

  /// Element at `index`; an index beyond the size throws cOutOfRangeException.
  const T& at(unsigned int index) const {
    arrayops::checkIndex("tArray", "at", index, miSize);
    return mpPool[index];
  }
  /// Element at `index`; an index beyond the size throws cOutOfRangeException.
  T& at(unsigned int index) {
    arrayops::checkIndex("tArray", "at", index, miSize);
    return mpPool[index];
  }
  /// Unchecked.
  const T& operator[](unsigned int index) const { return mpPool[index]; }
  /// Unchecked.
  T& operator[](unsigned int index) { return mpPool[index]; }

  /// The pool; without `allowNull` a missing pool is an assertion failure.
  const T* data(bool allowNull = false) const {
    if (!allowNull) {
      QEL_ASSERT(mpPool != 0, "std/tarray");
    }
    return mpPool;
  }
  /// The pool; without `allowNull` a missing pool is an assertion failure.
  T* data(bool allowNull = false) {
    if (!allowNull) {
      QEL_ASSERT(mpPool != 0, "std/tarray");
    }
    return mpPool;
  }
  /// The elements from `index` on; a range of `count` beyond the size throws cOutOfBoundsException. Null without a pool
  /// when `allowNull` is given.
  const T* data(unsigned int index, unsigned int count, bool allowNull = false) const {
    arrayops::checkRange("tArray", "data", index, count, miSize);
    return data(allowNull) == nullptr ? nullptr : mpPool + index;
  }
  /// The elements from `index` on; a range of `count` beyond the size throws cOutOfBoundsException. Null without a pool
  /// when `allowNull` is given.
  T* data(unsigned int index, unsigned int count, bool allowNull = false) {
    arrayops::checkRange("tArray", "data", index, count, miSize);
    return data(allowNull) == nullptr ? nullptr : mpPool + index;
  }

  /// The first element.
  const T* begin() const { return mpPool; }
  /// Past the last element.
  const T* end() const { return mpPool + miSize; }
  /// The first element.
  T* begin() { return mpPool; }
  /// Past the last element.
  T* end() { return mpPool + miSize; }

  /// Replaces the whole content.
  void setData(const T* pFrom, unsigned int n) {
    if (n > 0) {
      QEL_ASSERT(pFrom != 0, "std/tarray");
    }
    if (n > 0 && insidePool(pFrom)) {
      tArray copy(pFrom, n);
      setData(copy.mpPool, n);
      return;
    }
    resizePool(n, mbFitOnErase);
    copyElements(mpPool, pFrom, n);
  }
  /// Elements beyond the old size are unspecified.
  void setSize(unsigned int n) { resizePool(n, mbFitOnErase); }

  /// Returns the index of the new element.
  unsigned int append(const T& value) {
    const unsigned int at = miSize;
    if (QELCORE_STD_TARRAY_LIKELY(miPoolSize > at)) {
      mpPool[at] = value;
      miSize = at + 1;
      if (Traits::Terminated) {
        mpPool[at + 1] = T();
      }
      return at;
    }
    return appendSlow(value);
  }
  /// Appends the zero-terminated run `pFrom`; returns the index of its first element.
  unsigned int append(const T* pFrom) {
    QEL_ASSERT(pFrom != 0, "std/tarray");
    return append(pFrom, arrayops::terminatedLength(pFrom));
  }
  /// Appends `n` elements from `pFrom`; returns the index of the first.
  unsigned int append(const T* pFrom, unsigned int n) {
    if (n > 0) {
      QEL_ASSERT(pFrom != 0, "std/tarray");
    }
    const unsigned int at = miSize;
    if (n == 0) {
      return at;
    }
    if (QELCORE_STD_TARRAY_LIKELY(miPoolSize >= at + n && at + n > at)) {
      std::memcpy(mpPool + at, pFrom, static_cast<std::size_t>(n) * sizeof(T));
      miSize = at + n;
      if (Traits::Terminated) {
        mpPool[at + n] = T();
      }
      return at;
    }
    return appendSlow(pFrom, n);
  }
  /// Grows by `n` elements of unspecified content; returns the old size.
  unsigned int appendElements(unsigned int n) {
    const unsigned int at = miSize;
    if (QELCORE_STD_TARRAY_LIKELY(miPoolSize - at >= n)) {
      miSize = at + n;
      if (Traits::Terminated) {
        mpPool[at + n] = T();
      }
      return at;
    }
    arrayops::checkGrowth("tArray", "appendElements", at, n);
    resizePool(at + n, false);
    return at;
  }
  /// Grows by `n` copies of `fillValue`; returns the old size.
  unsigned int appendElements(unsigned int n, const T& fillValue) {
    const T value = fillValue;
    const unsigned int at = appendElements(n);
    fillElements(mpPool + at, value, n);
    return at;
  }

  /// `at` may equal size (then it appends).
  void insert(unsigned int at, const T& value) {
    const T copy = value;
    insert(at, &copy, 1);
  }
  /// Inserts the zero-terminated run `pFrom` before `at`.
  void insert(unsigned int at, const T* pFrom) {
    QEL_ASSERT(pFrom != 0, "std/tarray");
    insert(at, pFrom, arrayops::terminatedLength(pFrom));
  }
  /// Inserts `n` elements from `pFrom`, which may lie inside this array, before `at`; a position beyond the size
  /// throws.
  void insert(unsigned int at, const T* pFrom, unsigned int n) {
    if (n > 0) {
      QEL_ASSERT(pFrom != 0, "std/tarray");
    }
    arrayops::checkPosition("tArray", "insert", at, miSize);
    arrayops::checkGrowth("tArray", "insert", miSize, n);
    if (n == 0) {
      return;
    }
    if (insidePool(pFrom)) {
      tArray copy(pFrom, n);
      insert(at, copy.mpPool, n);
      return;
    }
    openGap(at, n);
    copyElements(mpPool + at, pFrom, n);
  }

  /// Removes `count` elements from `index` on.
  void erase(unsigned int index, unsigned int count) {
    arrayops::checkRange("tArray", "erase", index, count, miSize);
    if (count == 0) {
      return;
    }
    std::memmove(mpPool + index, mpPool + index + count, static_cast<std::size_t>(miSize - index - count) * sizeof(T));
    resizePool(miSize - count, mbFitOnErase);
  }
  /// Removes the LAST `n` elements.
  void erase(unsigned int n) {
    arrayops::checkTail("tArray", "erase", n, miSize);
    if (n == 0) {
      return;
    }
    resizePool(miSize - n, mbFitOnErase);
  }
  /// Size becomes `n` (not larger than the size).
  void truncate(unsigned int n) {
    arrayops::checkPosition("tArray", "truncate", n, miSize);
    resizePool(n, mbFitOnErase);
  }

  /// Sets every element to `value`.
  void fill(const T& value) { fillElements(mpPool, value, miSize); }
  /// Sets `count` elements from `index` on to `value`; a range beyond the size throws cOutOfBoundsException.
  void fill(unsigned int index, const T& value, unsigned int count) {
    arrayops::checkRange("tArray", "fill", index, count, miSize);
    fillElements(mpPool + index, value, count);
  }

  /// A new array holding a copy of the range.
  tArray cut(unsigned int index, unsigned int count) const {
    arrayops::checkRange("tArray", "cut", index, count, miSize);
    tArray part;
    part.miGrowStep = miGrowStep;
    part.mbFitOnErase = mbFitOnErase;
    part.setData(mpPool + index, count);
    return part;
  }

  /// Replaces every occurrence from `start` on; returns how many.
  unsigned int replace(const T& a, const T& b, unsigned int start = 0) {
    arrayops::checkRange("tArray", "replace", start, 0, miSize);
    const T from = a;
    const T to = b;
    unsigned int replaced = 0;
    for (unsigned int i = start; i < miSize; ++i) {
      if (mpPool[i] == from) {
        mpPool[i] = to;
        ++replaced;
      }
    }
    return replaced;
  }
  /// As above, for the zero-terminated runs `a` and `b`.
  unsigned int replace(const T* a, const T* b, unsigned int start = 0) {
    if (miSize == 0) {
      return 0;
    }
    QEL_ASSERT((a != 0) && (b != 0), "std/tarray");
    return replace(a, arrayops::terminatedLength(a), b, arrayops::terminatedLength(b), start);
  }
  /// As above, for `na` elements of `a` and `nb` of `b`; the content stays intact when it fails.
  unsigned int replace(const T* a, unsigned int na, const T* b, unsigned int nb, unsigned int start = 0) {
    arrayops::checkRange("tArray", "replace", start, 0, miSize);
    if (na == 0) {
      return 0;
    }
    unsigned int at = arrayops::search(mpPool, start, miSize, a, na);
    if (at == miSize) {
      return 0;
    }
    // Built aside, so that a failure (or a pattern inside this array) leaves
    // the content intact.
    tArray result;
    result.miGrowStep = miGrowStep;
    result.mbFitOnErase = mbFitOnErase;
    unsigned int replaced = 0;
    unsigned int from = 0;
    while (at != miSize) {
      result.append(mpPool + from, at - from);
      result.append(b, nb);
      ++replaced;
      from = at + na;
      at = arrayops::search(mpPool, from, miSize, a, na);
    }
    result.append(mpPool + from, miSize - from);
    if (result.miSize == 0) {
      result.resizePool(0, mbFitOnErase);
    }
    swap(result);
    return replaced;
  }

  /// Three-way comparison: an array that never had a pool is "less" than any
  /// non-null pointer, even of length 0.
  int relation(const tArray& other) const { return relation(other.mpPool, other.miSize); }
  /// As above, against `n` elements at `p`.
  int relation(const T* p, unsigned int n) const { return arrayops::relation(mpPool != nullptr, mpPool, miSize, p, n); }

  /// Compares by relation().
  bool operator==(const tArray& other) const { return relation(other) == 0; }
  /// Compares by relation().
  bool operator!=(const tArray& other) const { return relation(other) != 0; }
  /// Compares by relation().
  bool operator<(const tArray& other) const { return relation(other) < 0; }
  /// Compares by relation().
  bool operator<=(const tArray& other) const { return relation(other) <= 0; }
  /// Compares by relation().
  bool operator>(const tArray& other) const { return relation(other) > 0; }
  /// Compares by relation().
  bool operator>=(const tArray& other) const { return relation(other) >= 0; }
  /// Compares with the zero-terminated run `p`, by relation().
  bool operator==(const T* p) const { return relationTo(p) == 0; }
  /// Compares with the zero-terminated run `p`, by relation().
  bool operator!=(const T* p) const { return relationTo(p) != 0; }
  /// Compares with the zero-terminated run `p`, by relation().
  bool operator<(const T* p) const { return relationTo(p) < 0; }
  /// Compares with the zero-terminated run `p`, by relation().
  bool operator<=(const T* p) const { return relationTo(p) <= 0; }
  /// Compares with the zero-terminated run `p`, by relation().
  bool operator>(const T* p) const { return relationTo(p) > 0; }
  /// Compares with the zero-terminated run `p`, by relation().
  bool operator>=(const T* p) const { return relationTo(p) >= 0; }

  /// The array proxy interface.
  const T& proxyAt(unsigned int index) const override {
    arrayops::checkIndex("tArray", "proxyAt", index, miSize);
    return mpPool[index];
  }
  /// The number of elements.
  unsigned int proxyLength() const override { return miSize; }
  /// Copies `count` elements from `index` to `dest` (checked).
  void proxyCopyPartTo(T* dest, unsigned int index, unsigned int count) const override {
    arrayops::checkRange("tArray", "proxyCopyPartTo", index, count, miSize);
    copyElements(dest, mpPool + index, count);
  }
  /// The elements from `index` on (checked).
  const T* proxyProvideData(unsigned int index, unsigned int count) const override {
    arrayops::checkRange("tArray", "provideData", index, count, miSize);
    return mpPool == nullptr ? nullptr : mpPool + index;
  }
  /// 0: no preference.
  unsigned int proxyPreferredBlockSize() const override { return 0; }
  /// This array, offset 0.
  const tAbstractConstArrayProxy<T>* constProxyPhysical(unsigned int& offset) const override {
    offset = 0;
    return this;
  }
  /// Writable element at `index` (checked).
  T& proxyAt(unsigned int index) override {
    arrayops::checkIndex("tArray", "proxyAt", index, miSize);
    return mpPool[index];
  }
  /// Writable elements from `index` on (checked).
  T* proxyProvideWriteableData(unsigned int index, unsigned int count) override {
    arrayops::checkRange("tArray", "provideWriteableData", index, count, miSize);
    return mpPool == nullptr ? nullptr : mpPool + index;
  }
  /// Overwrites `count` elements from `index` with those at `from` (checked).
  void proxyPatchData(unsigned int index, unsigned int count, const T* from) override {
    arrayops::checkRange("tArray", "proxyPatchData", index, count, miSize);
    if (count > 0) {
      std::memmove(mpPool + index, from, static_cast<std::size_t>(count) * sizeof(T));
    }
  }
  /// As setSize().
  void proxySetSize(unsigned int size) override { setSize(size); }
  /// As insert().
  void proxyInsert(unsigned int index, const T* from, unsigned int count) override { insert(index, from, count); }
  /// Opens a gap of `count` elements of unspecified content at `index` (checked).
  void proxyInsertDefaultObjects(unsigned int index, unsigned int count) override {
    arrayops::checkPosition("tArray", "proxyInsertDefaultObjects", index, miSize);
    arrayops::checkGrowth("tArray", "proxyInsertDefaultObjects", miSize, count);
    if (count > 0) {
      openGap(index, count);
    }
  }
  /// As erase(index, count).
  void proxyErase(unsigned int index, unsigned int count) override { erase(index, count); }
  /// This array, offset 0.
  tAbstractArrayProxy<T>* proxyPhysical(unsigned int& offset) override {
    offset = 0;
    return this;
  }

  /// Pool capacity for `n` elements: n (at least 1) rounded up to a whole
  /// number of sectors.
  unsigned int sizeToSectors(unsigned int n) const {
    const std::uint64_t mask = (std::uint64_t(1) << (miGrowStep & 31)) - 1;
    const std::uint64_t m = n > 0 ? n : 1;
    const std::uint64_t rounded = (m + mask) & ~mask;
    return rounded > 0xFFFFFFFFu ? static_cast<unsigned int>(m) : static_cast<unsigned int>(rounded);
  }

protected:
  /// Every size change goes through here. Growth passes fit = false (whole
  /// sectors), shrinking passes the fit-on-erase flag.
  void resizePool(unsigned int newSize, bool fit) {
    unsigned int target = newSize == 0 ? 1 : newSize;
    if (!fit) {
      target = sizeToSectors(newSize);
    }
    if (Traits::ExtraElements == 0 && newSize == 0) {
      target = 0;
    }
    if (miPoolSize < target || (fit && (miPoolSize > target || miAllocated > target))) {
      reallocatePool(target);
    }
    miSize = newSize;
    if (Traits::Terminated) {
      mpPool[newSize] = T();
    }
  }

private:
  const T* readElements() const { return mpPool; }
  unsigned int readLength() const { return miSize; }
  static const char* readClassName() { return "tArray"; }
  static const char* readSource() { return "std/tarray"; }
  int relationTo(const T* p) const { return relation(p, p == nullptr ? 0 : arrayops::terminatedLength(p)); }

  /// Whether `p` points into the pool (insertions from the array itself). The
  /// addresses are compared as integers: `p` may belong to another object.
  bool insidePool(const T* p) const {
    const std::uintptr_t at = reinterpret_cast<std::uintptr_t>(p);
    const std::uintptr_t begin = reinterpret_cast<std::uintptr_t>(mpPool);
    return mpPool != nullptr && at >= begin && at < begin + (miPoolSize + Traits::ExtraElements) * sizeof(T);
  }

  static void copyElements(T* dest, const T* from, unsigned int n) {
    const std::size_t bytes = static_cast<std::size_t>(n) * sizeof(T);
    if (bytes >= 8 && bytes <= 16) {
      // Short strings and keys: two overlapping moves instead of a call.
      char head[8], tail[8];
      std::memcpy(head, from, 8);
      std::memcpy(tail, reinterpret_cast<const char*>(from) + bytes - 8, 8);
      std::memcpy(dest, head, 8);
      std::memcpy(reinterpret_cast<char*>(dest) + bytes - 8, tail, 8);
    } else if (n > 0) {
      std::memcpy(dest, from, bytes);
    }
  }
  static void fillElements(T* dest, const T& value, unsigned int n) {
    if (sizeof(T) == 1 && n > 0) {
      unsigned char byte;
      std::memcpy(&byte, &value, 1);
      std::memset(dest, byte, n);
      return;
    }
    for (unsigned int i = 0; i < n; ++i) {
      dest[i] = value;
    }
  }

  void initFrom(const T* pFrom, unsigned int n) {
    resizePool(n, false);
    copyElements(mpPool, pFrom, n);
  }

  /// The pool size is what the sector rule says. Underneath, an allocation
  /// that has to grow again and again takes half as much again as it holds,
  /// so that appending element by element costs amortised constant time; a
  /// fitting resize allocates exactly. realloc keeps the content up to the
  /// smaller size, which is all a resize needs to keep.
  void reallocatePool(unsigned int target) {
    if (target > miPoolSize && target <= miAllocated) {
      miPoolSize = target;
      return;
    }
    unsigned int allocate = target;
    if (target > miPoolSize && miPoolSize > 0) {
      const std::uint64_t ahead = static_cast<std::uint64_t>(miAllocated) + miAllocated / 2;
      if (ahead > target && ahead < 0xFFFFFFF0u) {
        allocate = sizeToSectors(static_cast<unsigned int>(ahead));
      }
    }
    const std::size_t bytes = (static_cast<std::size_t>(allocate) + Traits::ExtraElements) * sizeof(T);
    if (bytes == 0) {
      cPoolMemory::release(mpPool);
      mpPool = nullptr;
      miPoolSize = 0;
      miAllocated = 0;
      return;
    }
    T* pool = static_cast<T*>(cPoolMemory::resize(mpPool, bytes));
    if (pool == nullptr) {
      cSTDExceptions::throwOutOfMemory();
    }
    mpPool = pool;
    miPoolSize = target;
    miAllocated = allocate;
  }

  /// Grows by n and moves the elements from `at` on n places up.
  void openGap(unsigned int at, unsigned int n) {
    const unsigned int oldSize = miSize;
    resizePool(oldSize + n, false);
    std::memmove(mpPool + at + n, mpPool + at, static_cast<std::size_t>(oldSize - at) * sizeof(T));
  }

  unsigned int appendSlow(T value) {
    const unsigned int at = miSize;
    arrayops::checkGrowth("tArray", "append", at, 1);
    resizePool(at + 1, false);
    mpPool[at] = value;
    return at;
  }
  unsigned int appendSlow(const T* pFrom, unsigned int n) {
    const unsigned int at = miSize;
    arrayops::checkGrowth("tArray", "append", at, n);
    if (insidePool(pFrom)) {
      tArray copy(pFrom, n);
      return append(copy.mpPool, n);
    }
    resizePool(at + n, false);
    copyElements(mpPool + at, pFrom, n);
    return at;
  }

  T* mpPool;
  unsigned int miPoolSize;
  unsigned int miGrowStep;
  unsigned int miSize;
  bool mbFitOnErase;
  unsigned int miAllocated;  // elements the allocation holds (>= miPoolSize)
};

template <typename T, typename Traits>
inline bool operator==(const T* p, const tArray<T, Traits>& a) {
  return a == p;
}
template <typename T, typename Traits>
inline bool operator!=(const T* p, const tArray<T, Traits>& a) {
  return a != p;
}

}  // namespace qstd

#endif
