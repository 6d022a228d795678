/// \class qstd::tList
/// A list that keeps insertion order and can be changed while it is being
/// walked: eraseLater() only marks an entry (iterators stay valid), and
/// purge() removes the marked entries once no walk is under way. Appending
/// during a walk is safe too; the walk reaches the new entries.
///
/// \code
/// for (auto it = works.begin(); it != works.end(); ++it) {
///   if (done(*it)) it.eraseLater();  // or works.eraseLater(it)
/// }
/// works.purge();
/// \endcode
///
/// What a marked entry is until the purge depends on the list's mode:
/// - SkipMarked (the default): it is gone for every reader at once. Walks,
///   size(), first(), last() and contains() skip it.
/// - ShowMarked: it stays an entry like any other until purge() removes it;
///   walks and size() include it, and iterator::isMarked() tells it apart.
///   The work queue's list is such a list: removed works leave null entries
///   there that stay visible until the outermost pass purges them.
///
/// \code
/// qstd::tList<int> list(qstd::tList<int>::ShowMarked);
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
    tIterator(const tIterator<false>& other) : mIt(other.mIt), mEnd(other.mEnd), mpList(other.mpList) {}

    /// Marks this entry for erasure by the list's next purge(); the iterator
    /// stays valid and walks on.
    template <bool C = Const, typename = typename std::enable_if<!C>::type>
    void eraseLater() const {
      const_cast<tList*>(mpList)->eraseLater(*this);
    }
    /// Whether the entry waits for purge() (only a ShowMarked list shows such entries).
    bool isMarked() const { return mIt->mbMarked; }

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
    tIterator(tBase it, tBase end, const tList* list) : mIt(it), mEnd(end), mpList(list) { skipMarked(); }
    void skipMarked() {
      // The mode is looked at only on a marked entry: unmarked ones cost nothing more.
      while (mIt != mEnd && mIt->mbMarked && !mpList->mbShowMarked) {
        ++mIt;
      }
    }
    tBase mIt;
    tBase mEnd;
    const tList* mpList = nullptr;
  };

public:
  /// Walks the entries (without the marked ones unless the list shows them);
  /// eraseLater() marks the entry it stands on.
  typedef tIterator<false> iterator;
  /// Walks the entries (without the marked ones unless the list shows them).
  typedef tIterator<true> const_iterator;

  /// What readers see of entries marked with eraseLater() before purge().
  enum Marks { SkipMarked, ShowMarked };

  /// An empty list that skips marked entries.
  tList() : miLive(0), mbShowMarked(false) {}
  /// An empty list in the given mode.
  explicit tList(Marks marks) : miLive(0), mbShowMarked(marks == ShowMarked) {}
  /// The values in order.
  tList(std::initializer_list<T> values) : miLive(0), mbShowMarked(false) {
    for (const T& v : values) {
      append(v);
    }
  }
  /// The same mode, and the entries a walk of `other` sees, with their marks.
  tList(const tList& other) : miLive(0), mbShowMarked(other.mbShowMarked) {
    for (const_iterator it = other.begin(); it != other.end(); ++it) {
      iterator added = append(*it);
      if (it.isMarked()) {
        eraseLater(added);
      }
    }
  }
  /// Takes over the mode and the entries of `other`, which is left empty.
  tList(tList&& other) noexcept
      : mEntries(std::move(other.mEntries)),
        miLive(other.miLive),
        mbShowMarked(other.mbShowMarked),
        mDisposer(other.mDisposer) {
    other.mEntries.clear();
    other.miLive = 0;
  }
  /// Replaces mode and entries with a copy of `other` (see the copy constructor).
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

  /// The entries a walk sees: all of them in a ShowMarked list, else the unmarked ones.
  unsigned int size() const { return mbShowMarked ? static_cast<unsigned int>(mEntries.size()) : miLive; }
  /// The same as size().
  unsigned int length() const { return size(); }
  /// Whether a walk sees no entry.
  bool empty() const { return size() == 0; }
  /// Whether entries wait for purge().
  bool hasMarked() const { return mEntries.size() != miLive; }
  /// Whether walks and size() include marked entries.
  bool showsMarked() const { return mbShowMarked; }

  /// The first entry a walk sees.
  iterator begin() { return iterator(mEntries.begin(), mEntries.end(), this); }
  /// Past the last entry.
  iterator end() { return iterator(mEntries.end(), mEntries.end(), this); }
  /// The first entry a walk sees.
  const_iterator begin() const { return const_iterator(mEntries.begin(), mEntries.end(), this); }
  /// Past the last entry.
  const_iterator end() const { return const_iterator(mEntries.end(), mEntries.end(), this); }

  /// The first value a walk sees; an empty list throws cBugException.
  T& first() {
    if (empty()) {
      cSTDExceptions::throwElementNotFound("tList", "first");
    }
    return *begin();
  }
  /// The first value a walk sees; an empty list throws cBugException.
  const T& first() const {
    if (empty()) {
      cSTDExceptions::throwElementNotFound("tList", "first");
    }
    return *begin();
  }
  /// The last value a walk sees; an empty list throws cBugException.
  T& last() {
    if (empty()) {
      cSTDExceptions::throwElementNotFound("tList", "last");
    }
    return lastSeen()->mValue;
  }
  /// The last value a walk sees; an empty list throws cBugException.
  const T& last() const {
    if (empty()) {
      cSTDExceptions::throwElementNotFound("tList", "last");
    }
    return const_cast<tList*>(this)->lastSeen()->mValue;
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
  /// Marks the entry for purge(); walks of a SkipMarked list skip it from now on.
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
  /// Whether an entry a walk sees equals `value`.
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

  /// Exchanges mode and entries.
  void swap(tList& other) noexcept {
    mEntries.swap(other.mEntries);
    std::swap(miLive, other.miLive);
    std::swap(mbShowMarked, other.mbShowMarked);
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
  typename tEntries::iterator lastSeen() {
    typename tEntries::iterator it = mEntries.end();
    do {
      --it;
    } while (it->mbMarked && !mbShowMarked);
    return it;
  }

  tEntries mEntries;
  /// Entries not marked.
  unsigned int miLive;
  bool mbShowMarked;

protected:
  /// Disposes of the values of removed entries.
  Disposer mDisposer;
};

}  // namespace qstd

#endif
