/// \class qstd::tSmallVector
/// A vector of plain values (pointers, numbers) that keeps its first N
/// elements inside the object: short lists, the common case, never allocate.
/// Beyond N the elements move to a heap block that doubles as it fills.
///
/// \code
/// qstd::tSmallVector<cSlot*, 1> slots;   // one connection: no allocation
/// slots.push_back(&slot);
/// for (cSlot* s : slots) ...;
/// \endcode
///
/// Iterators and element references stay valid until the vector grows past
/// its capacity or is swapped.
#ifndef QELCORE_STD_TSMALLVECTOR_H
#define QELCORE_STD_TSMALLVECTOR_H

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <new>
#include <type_traits>

#include "qelcore/std/cpoolmemory.h"

namespace qstd {

template <typename T, unsigned int N>
class tSmallVector {
  static_assert(std::is_trivially_copyable<T>::value, "tSmallVector holds plain values only");
  static_assert(N > 0, "tSmallVector needs room for one element inside");

public:
  ///@{
  /// The member types of std::vector.
  typedef T value_type;
  typedef std::size_t size_type;
  typedef T* iterator;
  typedef const T* const_iterator;
  ///@}

  /// Empty, with room for N elements inside.
  tSmallVector() : mpData(maInline), miSize(0), miCapacity(N) {}
  /// The values in order; std::bad_alloc when there is no memory.
  tSmallVector(std::initializer_list<T> values) : tSmallVector() {
    assign(values.begin(), static_cast<unsigned int>(values.size()));
  }
  /// A copy of `other`; std::bad_alloc when there is no memory.
  tSmallVector(const tSmallVector& other) : tSmallVector() { assign(other.mpData, other.miSize); }
  /// Replaces the content with a copy of `other`; std::bad_alloc when there is no memory.
  tSmallVector& operator=(const tSmallVector& other) {
    if (this != &other) {
      miSize = 0;
      assign(other.mpData, other.miSize);
    }
    return *this;
  }
  ~tSmallVector() {
    // Only a heap block has a capacity other than N (it always has more).
    if (miCapacity != N) cPoolMemory::release(mpData);
  }

  /// The number of elements.
  std::size_t size() const { return miSize; }
  /// Whether there is none.
  bool empty() const { return miSize == 0; }
  /// Elements that fit before the vector must grow (N at first).
  std::size_t capacity() const { return miCapacity; }
  ///@{
  /// Unchecked: the element at `i`, the first, the last, the storage.
  T& operator[](std::size_t i) { return mpData[i]; }
  const T& operator[](std::size_t i) const { return mpData[i]; }
  T& front() { return mpData[0]; }
  T& back() { return mpData[miSize - 1]; }
  const T& back() const { return mpData[miSize - 1]; }
  T* data() { return mpData; }
  const T* data() const { return mpData; }
  ///@}
  ///@{
  /// Iterators over the elements.
  iterator begin() { return mpData; }
  iterator end() { return mpData + miSize; }
  const_iterator begin() const { return mpData; }
  const_iterator end() const { return mpData + miSize; }
  ///@}

  /// std::bad_alloc when there is no memory; the vector is then unchanged.
  void reserve(std::size_t n) {
    if (n > miCapacity) grow(n);
  }
  /// Appends `value` (which may be an element of this vector); std::bad_alloc when there is no memory, the vector then
  /// unchanged.
  void push_back(const T& value) {
    if (miSize == miCapacity) {
      const T copy = value;  // `value` may live in the block that moves
      grow(miSize + 1);
      mpData[miSize++] = copy;
      return;
    }
    mpData[miSize++] = value;
  }
  /// Removes the last element; the vector must not be empty.
  void pop_back() { --miSize; }
  ///@{
  /// Removes one element or the range; returns the position of the element that followed them. The capacity stays.
  iterator erase(const_iterator at) { return erase(at, at + 1); }
  iterator erase(const_iterator first, const_iterator last) {
    T* from = mpData + (first - mpData);
    const std::size_t gap = static_cast<std::size_t>(last - first);
    const std::size_t tail = static_cast<std::size_t>(end() - last);
    if (gap && tail) std::memmove(static_cast<void*>(from), static_cast<const void*>(last), tail * sizeof(T));
    miSize -= static_cast<unsigned int>(gap);
    return from;
  }
  ///@}
  /// Removes every element; the capacity stays.
  void clear() { miSize = 0; }

  ///@{
  /// Element-wise comparison.
  bool operator==(const tSmallVector& other) const {
    if (miSize != other.miSize) return false;
    for (unsigned int i = 0; i < miSize; ++i)
      if (!(mpData[i] == other.mpData[i])) return false;
    return true;
  }
  bool operator!=(const tSmallVector& other) const { return !(*this == other); }
  ///@}

  /// Exchanges the contents; never allocates.
  void swap(tSmallVector& other) {
    if (mpData != maInline && other.mpData != other.maInline) {
      T* data = mpData;
      mpData = other.mpData;
      other.mpData = data;
      const unsigned int capacity = miCapacity;
      miCapacity = other.miCapacity;
      other.miCapacity = capacity;
      const unsigned int size = miSize;
      miSize = other.miSize;
      other.miSize = size;
      return;
    }
    tSmallVector held;
    held.take(*this);
    take(other);
    other.take(held);
  }

private:
  void assign(const T* values, unsigned int count) {
    reserve(count);
    if (count) std::memcpy(static_cast<void*>(mpData), static_cast<const void*>(values), count * sizeof(T));
    miSize = count;
  }
  void grow(std::size_t atLeast) {
    std::size_t capacity = miCapacity * 2u;
    if (capacity < atLeast) capacity = atLeast;
    T* block;
    if (mpData == maInline) {
      block = static_cast<T*>(cPoolMemory::resize(nullptr, capacity * sizeof(T)));
      if (!block) throw std::bad_alloc();
      std::memcpy(static_cast<void*>(block), static_cast<const void*>(maInline), miSize * sizeof(T));
    } else {
      block = static_cast<T*>(cPoolMemory::resize(mpData, capacity * sizeof(T)));
      if (!block) throw std::bad_alloc();
    }
    mpData = block;
    miCapacity = static_cast<unsigned int>(capacity);
  }
  /// Moves the content of `other` here (this one is empty and inline);
  /// `other` is left empty and inline.
  void take(tSmallVector& other) {
    if (other.mpData == other.maInline) {
      for (unsigned int i = 0; i < other.miSize; ++i) maInline[i] = other.maInline[i];
      mpData = maInline;
      miCapacity = N;
    } else {
      mpData = other.mpData;
      miCapacity = other.miCapacity;
    }
    miSize = other.miSize;
    other.mpData = other.maInline;
    other.miCapacity = N;
    other.miSize = 0;
  }

  T* mpData;
  unsigned int miSize;
  unsigned int miCapacity;
  T maInline[N];
};

}  // namespace qstd

#endif
