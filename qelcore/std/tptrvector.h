/// \class qstd::tPtrVector
/// A vector of objects held by pointer. By default it owns them and deletes
/// every element when the element is erased, replaced or the vector goes;
/// take() hands one back. A vector made with autoDelete false only lists
/// objects owned elsewhere.
#ifndef QELCORE_STD_TPTRVECTOR_H
#define QELCORE_STD_TPTRVECTOR_H

#include <utility>
#include <vector>

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarrayops.h"
#include "qelcore/std/tautoptr.h"

namespace qstd {

template <typename T>
class tPtrVector {
public:
  /// Iterates over the held pointers.
  typedef typename std::vector<T*>::const_iterator const_iterator;

  /// An owning vector.
  tPtrVector() : mbAutoDelete(true) {}
  /// Owning when `autoDelete` is true.
  explicit tPtrVector(bool autoDelete) : mbAutoDelete(autoDelete) {}
  ///@{
  /// Not copyable: an owning vector cannot share its objects.
  tPtrVector(const tPtrVector&) = delete;
  tPtrVector& operator=(const tPtrVector&) = delete;
  ///@}
  ///@{
  /// Take over the elements and the ownership of `other`, which is left empty.
  tPtrVector(tPtrVector&& other) noexcept : mVector(std::move(other.mVector)), mbAutoDelete(other.mbAutoDelete) {
    other.mVector.clear();
  }
  tPtrVector& operator=(tPtrVector&& other) noexcept {
    tPtrVector taken(std::move(other));
    swap(taken);
    return *this;
  }
  ///@}
  ~tPtrVector() { clear(); }

  ///@{
  /// The number of elements.
  unsigned int size() const { return static_cast<unsigned int>(mVector.size()); }
  unsigned int length() const { return size(); }
  ///@}
  /// Whether there is none.
  bool empty() const { return mVector.empty(); }
  /// Whether the vector deletes the elements it removes.
  bool autoDelete() const { return mbAutoDelete; }
  /// Applies to the elements removed from now on.
  void setAutoDelete(bool on) { mbAutoDelete = on; }

  /// Removes (and when owning deletes) every element.
  void clear() {
    std::vector<T*> old;
    old.swap(mVector);
    for (T* p : old) {
      dispose(p);
    }
  }

  ///@{
  /// Element at `index`, the first, the last; an index outside the vector
  /// (or an empty vector) throws cOutOfRangeException.
  T* at(unsigned int index) const {
    arrayops::checkIndex("tPtrVector", "at", index, size());
    return mVector[index];
  }
  T* operator[](unsigned int index) const { return at(index); }
  T* first() const { return at(0); }
  T* last() const { return at(size() - 1); }
  ///@}

  ///@{
  /// An owning vector takes `p` over (also when the append fails); returns
  /// its index.
  unsigned int append(T* p) {
    tAutoPtr<T> owned(mbAutoDelete ? p : nullptr);
    mVector.push_back(p);
    owned.release();
    return size() - 1;
  }
  unsigned int append(tAutoPtr<T> p) { return append(p.release()); }
  ///@}
  /// Inserts `p` before `index` (which may equal size()); an owning vector takes `p` over, also when the insert fails.
  void insert(unsigned int index, T* p) {
    tAutoPtr<T> owned(mbAutoDelete ? p : nullptr);
    arrayops::checkPosition("tPtrVector", "insert", index, size());
    mVector.insert(mVector.begin() + index, p);
    owned.release();
  }
  /// Removes (when owning deletes) the element held at `index` and holds `p`
  /// there instead.
  void replace(unsigned int index, T* p) {
    tAutoPtr<T> owned(mbAutoDelete ? p : nullptr);
    arrayops::checkIndex("tPtrVector", "replace", index, size());
    T* old = mVector[index];
    mVector[index] = p;
    owned.release();
    if (old != p) {
      dispose(old);
    }
  }
  /// Removes (when owning deletes) the element.
  void erase(unsigned int index) {
    arrayops::checkIndex("tPtrVector", "erase", index, size());
    T* p = mVector[index];
    mVector.erase(mVector.begin() + index);
    dispose(p);
  }
  /// Removes the element without deleting it (an owning tAutoPtr only if the
  /// vector owned it).
  tAutoPtr<T> take(unsigned int index) {
    arrayops::checkIndex("tPtrVector", "take", index, size());
    T* p = mVector[index];
    mVector.erase(mVector.begin() + index);
    return tAutoPtr<T>(p, mbAutoDelete ? tAutoPtrType::SingleObject : tAutoPtrType::NotOwned);
  }

  /// Index of `p` (by identity); size() when it is not held.
  unsigned int find(const T* p, bool& found) const {
    for (unsigned int i = 0; i < size(); ++i) {
      if (mVector[i] == p) {
        found = true;
        return i;
      }
    }
    found = false;
    return size();
  }
  /// Whether `p` is held.
  bool contains(const T* p) const {
    bool found = false;
    find(p, found);
    return found;
  }

  ///@{
  /// Iterators over the held pointers.
  const_iterator begin() const { return mVector.begin(); }
  const_iterator end() const { return mVector.end(); }
  ///@}
  /// Exchanges the elements and the ownership.
  void swap(tPtrVector& other) noexcept {
    mVector.swap(other.mVector);
    std::swap(mbAutoDelete, other.mbAutoDelete);
  }

private:
  void dispose(T* p) const {
    if (mbAutoDelete) {
      delete p;
    }
  }

  std::vector<T*> mVector;
  bool mbAutoDelete;
};

}  // namespace qstd

#endif
