/// \class qstd::tSimpleVector
/// A growable array of plain values (pointers, numbers) with the member names
/// of std::vector, built on tArray. Headers that keep lists of pointers use it
/// instead of \<vector\>, which weighs ten times as much as everything else
/// such a header includes.
///
/// \code
/// qstd::tSimpleVector<cAbstractSignal*> signals{&a, &b};
/// signals.push_back(&c);
/// for (cAbstractSignal* s : signals) s->disconnect(*this);
/// signals.erase(signals.begin(), signals.begin() + 1);
/// \endcode
///
/// Like tArray it moves its elements as memory, so T must be trivially
/// copyable. Running out of memory throws the library's out-of-memory
/// exception, not std::bad_alloc.
#ifndef QELCORE_STD_TSIMPLEVECTOR_H
#define QELCORE_STD_TSIMPLEVECTOR_H

#include <cstddef>
#include <initializer_list>

#include "qelcore/std/tarray.h"

namespace qstd {

template <typename T>
class tSimpleVector {
public:
  ///@{
  /// The member types of std::vector.
  typedef T value_type;
  typedef std::size_t size_type;
  typedef T* iterator;
  typedef const T* const_iterator;
  ///@}

  /// The pool is kept when elements go, as std::vector keeps its capacity.
  tSimpleVector() { mArray.setFitOnErase(false); }
  /// Holds a copy of `values`.
  tSimpleVector(std::initializer_list<T> values) : tSimpleVector() {
    if (values.size()) mArray.append(values.begin(), static_cast<unsigned int>(values.size()));
  }
  /// A copy of `other`.
  tSimpleVector(const tSimpleVector& other) : mArray(other.mArray) { mArray.setFitOnErase(false); }
  /// Replaces the content with a copy of `other`.
  tSimpleVector& operator=(const tSimpleVector& other) {
    if (this != &other) {
      tSimpleVector copy(other);
      swap(copy);
    }
    return *this;
  }
  /// Exchanges the contents.
  void swap(tSimpleVector& other) { mArray.swap(other.mArray); }

  /// The number of elements.
  std::size_t size() const { return mArray.size(); }
  /// Whether there is none.
  bool empty() const { return mArray.empty(); }
  /// Elements that fit before the storage must grow.
  std::size_t capacity() const { return mArray._poolSize(); }
  ///@{
  /// Unchecked, as in std::vector.
  T& operator[](std::size_t i) { return mArray[static_cast<unsigned int>(i)]; }
  const T& operator[](std::size_t i) const { return mArray[static_cast<unsigned int>(i)]; }
  ///@}
  ///@{
  /// Unchecked: the first element, the last element, the storage.
  T& front() { return mArray[0]; }
  T& back() { return mArray[mArray.size() - 1]; }
  const T& back() const { return mArray[mArray.size() - 1]; }
  T* data() { return mArray.begin(); }
  const T* data() const { return mArray.begin(); }
  ///@}
  ///@{
  /// Iterators over the elements; appending may invalidate them.
  iterator begin() { return mArray.begin(); }
  iterator end() { return mArray.end(); }
  const_iterator begin() const { return mArray.begin(); }
  const_iterator end() const { return mArray.end(); }
  ///@}

  /// Makes room for `n` elements, so that appending up to there cannot fail.
  void reserve(std::size_t n) {
    const unsigned int size = mArray.size();
    if (n > mArray._poolSize()) {
      mArray.appendElements(static_cast<unsigned int>(n) - size);
      mArray.truncate(size);
    }
  }
  /// Appends `value`.
  void push_back(const T& value) { mArray.append(value); }
  /// Removes the last element.
  void pop_back() { mArray.erase(1u); }
  /// Inserts `value` before `at`; returns its position.
  iterator insert(const_iterator at, const T& value) {
    const unsigned int index = static_cast<unsigned int>(at - begin());
    mArray.insert(index, value);
    return begin() + index;
  }
  ///@{
  /// Removes one element or the range; returns the position of the element that followed them.
  iterator erase(const_iterator at) { return erase(at, at + 1); }
  iterator erase(const_iterator first, const_iterator last) {
    const unsigned int index = static_cast<unsigned int>(first - begin());
    mArray.erase(index, static_cast<unsigned int>(last - first));
    return begin() + index;
  }
  ///@}
  /// Removes every element; the storage is kept.
  void clear() { mArray.truncate(0); }

  ///@{
  /// Element-wise comparison with operator==.
  bool operator==(const tSimpleVector& other) const {
    if (size() != other.size()) return false;
    for (std::size_t i = 0; i < size(); ++i)
      if (!((*this)[i] == other[i])) return false;
    return true;
  }
  bool operator!=(const tSimpleVector& other) const { return !(*this == other); }
  ///@}

private:
  tArray<T> mArray;
};

}  // namespace qstd

#endif
