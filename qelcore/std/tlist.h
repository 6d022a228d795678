/// \class qstd::tList
/// A list that keeps insertion order and can be changed while it is being
/// walked: eraseLater() only marks an entry (iterators skip marked entries and
/// stay valid), and purge() removes the marked entries once no walk is under
/// way. Appending during a walk is safe too; the walk reaches the new entries.
///
/// \code
/// for (auto it = works.begin(); it != works.end(); ++it) {
///   if (done(*it)) it.eraseLater();  // or works.eraseLater(it)
/// }
/// works.purge();
/// \endcode
///
/// erase() removes at once and must not hit an entry that a walk stands on.
#ifndef QELCORE_STD_TLIST_H
#define QELCORE_STD_TLIST_H

#include <initializer_list>
#include <iterator>
#include <list>
#include <type_traits>
#include <utility>

#include "qelcore/std/tpoolallocator.h"
#include "qelcore/std/cstdexceptions.h"

namespace qstd {

/// What tList does with an entry it removes: values need nothing.
template <typename T>
struct tListKeepElement {
  /// Does nothing.
  void dispose(T&) const {}
};

template <typename T, typename Disposer = tListKeepElement<T>>
class tList {
  struct tEntry {
    template <typename V>
    explicit tEntry(V&& v) : mValue(std::forward<V>(v)), mbMarked(false) {}
    T mValue;
    bool mbMarked;
  };
  /// Nodes come from the thread's cache of small blocks.
  typedef std::list<tEntry, tPoolAllocator<tEntry>> tEntries;

  template <bool Const>
  class tIterator {
    typedef
        typename std::conditional<Const, typename tEntries::const_iterator, typename tEntries::iterator>::type tBase;

  public:
    typedef std::forward_iterator_tag iterator_category;
    typedef T value_type;
    typedef std::ptrdiff_t difference_type;
    typedef typename std::conditional<Const, const T*, T*>::type pointer;
    typedef typename std::conditional<Const, const T&, T&>::type reference;

    tIterator() {}
    /// A mutable iterator converts to a const one.
    template <bool C = Const, typename = typename std::enable_if<C>::type>
    tIterator(const tIterator<false>& other) : mIt(other.mIt), mEnd(other.mEnd) {}

    /// Marks this entry for erasure by the list's next purge(); the iterator
    /// stays valid and walks on.
    template <bool C = Const, typename = typename std::enable_if<!C>::type>
    void eraseLater() const {
      mpList->eraseLater(*this);
    }

    reference operator*() const { return mIt->mValue; }
    pointer operator->() const { return &mIt->mValue; }
    tIterator& operator++() {
      ++mIt;
      skipMarked();
      return *this;
    }
    tIterator operator++(int) {
      tIterator old(*this);
      ++*this;
      return old;
    }
    bool operator==(const tIterator& other) const { return mIt == other.mIt; }
    bool operator!=(const tIterator& other) const { return mIt != other.mIt; }

  private:
    friend class tList;
    friend class tIterator<true>;
    tIterator(tBase it, tBase end, tList* list) : mIt(it), mEnd(end), mpList(list) { skipMarked(); }
    void skipMarked() {
      while (mIt != mEnd && mIt->mbMarked) {
        ++mIt;
      }
    }
    tBase mIt;
    tBase mEnd;
    tList* mpList = nullptr;  // for eraseLater(); unused by const iterators
  };

public:
  /// Walks the entries not marked for erasure; eraseLater() marks the entry it stands on.
  typedef tIterator<false> iterator;
  /// Walks the entries not marked for erasure.
  typedef tIterator<true> const_iterator;

  /// An empty list.
  tList() : miLive(0) {}
  /// The values in order.
  tList(std::initializer_list<T> values) : miLive(0) {
    for (const T& v : values) {
      append(v);
    }
  }
  /// Copies the entries that are not marked.
  tList(const tList& other) : miLive(0) {
    for (const T& v : other) {
      append(v);
    }
  }
  /// Takes over the entries of `other`, which is left empty.
  tList(tList&& other) noexcept
      : mEntries(std::move(other.mEntries)), miLive(other.miLive), mDisposer(other.mDisposer) {
    other.mEntries.clear();
    other.miLive = 0;
  }
  /// Replaces the entries with copies of the unmarked entries of `other`.
  tList& operator=(const tList& other) {
    if (this != &other) {
      tList copy(other);
      swap(copy);
    }
    return *this;
  }
  /// Takes over the entries of `other`, which is left empty.
  tList& operator=(tList&& other) noexcept {
    tList taken(std::move(other));
    swap(taken);
    return *this;
  }
  ~tList() { clear(); }

  /// Entries not marked for erasure.
  unsigned int size() const { return miLive; }
  /// The same as size().
  unsigned int length() const { return miLive; }
  /// Whether no entry is left unmarked.
  bool empty() const { return miLive == 0; }
  /// Whether entries wait for purge().
  bool hasMarked() const { return mEntries.size() != miLive; }

  /// The first unmarked entry.
  iterator begin() { return iterator(mEntries.begin(), mEntries.end(), this); }
  /// Past the last entry.
  iterator end() { return iterator(mEntries.end(), mEntries.end(), this); }
  /// The first unmarked entry.
  const_iterator begin() const { return const_iterator(mEntries.begin(), mEntries.end(), nullptr); }
  /// Past the last entry.
  const_iterator end() const { return const_iterator(mEntries.end(), mEntries.end(), nullptr); }

  /// The first unmarked value; an empty list throws cBugException.
  T& first() {
    if (miLive == 0) {
      cSTDExceptions::throwElementNotFound("tList", "first");
    }
    return *begin();
  }
  /// The first unmarked value; an empty list throws cBugException.
  const T& first() const {
    if (miLive == 0) {
      cSTDExceptions::throwElementNotFound("tList", "first");
    }
    return *begin();
  }
  /// The last unmarked value; an empty list throws cBugException.
  T& last() {
    if (miLive == 0) {
      cSTDExceptions::throwElementNotFound("tList", "last");
    }
    return lastLive()->mValue;
  }
  /// The last unmarked value; an empty list throws cBugException.
  const T& last() const {
    if (miLive == 0) {
      cSTDExceptions::throwElementNotFound("tList", "last");
    }
    return const_cast<tList*>(this)->lastLive()->mValue;
  }

  /// Adds `value` at the end; returns its position.
  iterator append(const T& value) { return insertAt(mEntries.end(), value); }
  /// Adds `value` at the end; returns its position.
  iterator append(T&& value) { return insertAt(mEntries.end(), std::move(value)); }
  /// Adds `value` at the front; returns its position.
  iterator prepend(const T& value) { return insertAt(mEntries.begin(), value); }
  /// Adds `value` at the front; returns its position.
  iterator prepend(T&& value) { return insertAt(mEntries.begin(), std::move(value)); }
  /// Before `position` (end() appends).
  iterator insert(iterator position, const T& value) { return insertAt(position.mIt, value); }
  /// Before `position` (end() appends).
  iterator insert(iterator position, T&& value) { return insertAt(position.mIt, std::move(value)); }

  /// Removes at once; returns the next entry. end() throws cBugException.
  iterator erase(iterator position) {
    checkPosition(position, "erase");
    typename tEntries::iterator it = position.mIt;
    if (!it->mbMarked) {
      --miLive;
    }
    mDisposer.dispose(it->mValue);
    return iterator(mEntries.erase(it), mEntries.end(), this);
  }
  /// Marks the entry: walks skip it from now on, purge() removes it.
  void eraseLater(iterator position) {
    checkPosition(position, "eraseLater");
    if (!position.mIt->mbMarked) {
      position.mIt->mbMarked = true;
      --miLive;
    }
  }
  /// Removes every marked entry. Not while a walk is under way.
  void purge() {
    typename tEntries::iterator it = mEntries.begin();
    while (it != mEntries.end()) {
      if (it->mbMarked) {
        mDisposer.dispose(it->mValue);
        it = mEntries.erase(it);
      } else {
        ++it;
      }
    }
  }
  /// The first entry equal to `value`, or end().
  iterator position(const T& value) {
    for (iterator it = begin(); it != end(); ++it) {
      if (*it == value) {
        return it;
      }
    }
    return end();
  }
  /// The first entry equal to `value`, or end().
  const_iterator position(const T& value) const {
    for (const_iterator it = begin(); it != end(); ++it) {
      if (*it == value) {
        return it;
      }
    }
    return end();
  }
  /// Whether an unmarked entry equals `value`.
  bool contains(const T& value) const { return position(value) != end(); }
  /// Erases the first entry equal to `value` at once; false when
  /// there is none.
  bool remove(const T& value) {
    iterator it = position(value);
    if (it == end()) {
      return false;
    }
    erase(it);
    return true;
  }
  /// Marks the first entry equal to `value` for purge(); false when there is none.
  bool removeLater(const T& value) {
    iterator it = position(value);
    if (it == end()) {
      return false;
    }
    eraseLater(it);
    return true;
  }
  /// Removes every entry, marked or not. Not while a walk is under way.
  void clear() {
    tEntries old;
    old.swap(mEntries);
    miLive = 0;
    for (tEntry& e : old) {
      mDisposer.dispose(e.mValue);
    }
  }

  /// Exchanges the entries.
  void swap(tList& other) noexcept {
    mEntries.swap(other.mEntries);
    std::swap(miLive, other.miLive);
    std::swap(mDisposer, other.mDisposer);
  }

private:
  template <typename V>
  iterator insertAt(typename tEntries::iterator at, V&& value) {
    typename tEntries::iterator it = mEntries.emplace(at, std::forward<V>(value));
    ++miLive;
    return iterator(it, mEntries.end(), this);
  }
  void checkPosition(const iterator& position, const char* operation) {
    if (position.mIt == mEntries.end()) {
      cSTDExceptions::throwElementNotFound("tList", operation);
    }
  }
  typename tEntries::iterator lastLive() {
    typename tEntries::iterator it = mEntries.end();
    do {
      --it;
    } while (it->mbMarked);
    return it;
  }

  tEntries mEntries;
  unsigned int miLive;

protected:
  /// Disposes of the values of removed entries.
  Disposer mDisposer;
};

}  // namespace qstd

#endif
