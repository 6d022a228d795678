/// \class qstd::tVector
/// A growable array of values of any copyable or movable type, indexed with
/// unsigned int. Both at() and operator[] check the index.
#ifndef QELCORE_STD_TVECTOR_H
#define QELCORE_STD_TVECTOR_H

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarrayops.h"

namespace qstd {

template <typename T>
class tVector {
public:
  ///@{
  /// Iterators of the underlying std::vector.
  typedef typename std::vector<T>::iterator iterator;
  typedef typename std::vector<T>::const_iterator const_iterator;
  ///@}

  tVector() {}
  /// `n` value-initialised elements.
  explicit tVector(unsigned int n) : mVector(n) {}
  /// `n` copies of `value`.
  tVector(unsigned int n, const T& value) : mVector(n, value) {}
  /// The elements of the list.
  tVector(std::initializer_list<T> values) : mVector(values) {}

  ///@{
  /// The number of elements.
  unsigned int size() const { return static_cast<unsigned int>(mVector.size()); }
  unsigned int length() const { return size(); }
  ///@}
  /// Whether there is none.
  bool empty() const { return mVector.empty(); }
  /// Removes every element.
  void clear() { mVector.clear(); }
  /// Makes room for `n` elements.
  void reserve(unsigned int n) { mVector.reserve(n); }
  /// New elements are value-initialised.
  void setSize(unsigned int n) { mVector.resize(n); }

  ///@{
  /// Element at `index`, the first, the last; an index outside the vector
  /// (or an empty vector) throws cOutOfRangeException.
  T& at(unsigned int index) {
    arrayops::checkIndex("tVector", "at", index, size());
    return mVector[index];
  }
  const T& at(unsigned int index) const {
    arrayops::checkIndex("tVector", "at", index, size());
    return mVector[index];
  }
  T& operator[](unsigned int index) { return at(index); }
  const T& operator[](unsigned int index) const { return at(index); }
  T& first() { return at(0); }
  const T& first() const { return at(0); }
  T& last() { return at(size() - 1); }
  const T& last() const { return at(size() - 1); }
  ///@}

  ///@{
  /// Return the index of the new element.
  unsigned int append(const T& value) {
    mVector.push_back(value);
    return size() - 1;
  }
  unsigned int append(T&& value) {
    mVector.push_back(std::move(value));
    return size() - 1;
  }
  ///@}
  ///@{
  /// `index` may equal size().
  void insert(unsigned int index, const T& value) {
    arrayops::checkPosition("tVector", "insert", index, size());
    mVector.insert(mVector.begin() + index, value);
  }
  void insert(unsigned int index, T&& value) {
    arrayops::checkPosition("tVector", "insert", index, size());
    mVector.insert(mVector.begin() + index, std::move(value));
  }
  ///@}
  ///@{
  /// Remove the element at `index`, or `count` elements from there; an index or range outside the vector throws.
  void erase(unsigned int index) {
    arrayops::checkIndex("tVector", "erase", index, size());
    mVector.erase(mVector.begin() + index);
  }
  void erase(unsigned int index, unsigned int count) {
    arrayops::checkRange("tVector", "erase", index, count, size());
    mVector.erase(mVector.begin() + index, mVector.begin() + index + count);
  }
  ///@}
  /// Removes and returns the last element; an empty vector throws cBugException.
  T takeLast() {
    if (mVector.empty()) {
      cSTDExceptions::throwElementNotFound("tVector", "takeLast");
    }
    T value = std::move(mVector.back());
    mVector.pop_back();
    return value;
  }

  /// Index of the first element equal to `value` from `start` on; size()
  /// when there is none.
  unsigned int find(const T& value, bool& found, unsigned int start = 0) const {
    for (unsigned int i = start; i < size(); ++i) {
      if (mVector[i] == value) {
        found = true;
        return i;
      }
    }
    found = false;
    return size();
  }
  /// Whether an element equals `value`.
  bool contains(const T& value) const {
    bool found = false;
    find(value, found);
    return found;
  }

  ///@{
  /// Iterators over the elements; changing the size invalidates them.
  iterator begin() { return mVector.begin(); }
  iterator end() { return mVector.end(); }
  const_iterator begin() const { return mVector.begin(); }
  const_iterator end() const { return mVector.end(); }
  ///@}

  /// Exchanges the contents.
  void swap(tVector& other) { mVector.swap(other.mVector); }
  ///@{
  /// Each uses only the element operator of its own name, so that element
  /// types that define just one of them can be compared.
  bool operator==(const tVector& other) const {
    if (mVector.size() != other.mVector.size()) {
      return false;
    }
    for (std::size_t i = 0; i < mVector.size(); ++i) {
      if (!(mVector[i] == other.mVector[i])) {
        return false;
      }
    }
    return true;
  }
  bool operator!=(const tVector& other) const {
    if (mVector.size() != other.mVector.size()) {
      return true;
    }
    for (std::size_t i = 0; i < mVector.size(); ++i) {
      if (mVector[i] != other.mVector[i]) {
        return true;
      }
    }
    return false;
  }
  ///@}

private:
  std::vector<T> mVector;
};

}  // namespace qstd

#endif
