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

#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <new>
#include <type_traits>
#include <utility>

#include "qelcore/std/cpoolmemory.h"
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
  /// The links of an entry; the list's own one closes the ring.
  struct tLinks {
    tLinks* mpNext;
    tLinks* mpPrev;
  };
  /// Entries come from the thread's cache of small blocks.
  struct tEntry : tLinks {
    template <typename V>
    explicit tEntry(V&& v) : mValue(std::forward<V>(v)), mbMarked(false) {}
    T mValue;
    bool mbMarked;
  };
  static tEntry* entry(tLinks* links) { return static_cast<tEntry*>(links); }

  template <bool Const>
  class tIterator {
    typedef tLinks* tBase;

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
    bool isMarked() const { return entry(mIt)->mbMarked; }

    reference operator*() const { return entry(mIt)->mValue; }
    pointer operator->() const { return &entry(mIt)->mValue; }
    tIterator& operator++() {
      mIt = mIt->mpNext;
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
      while (mIt != mEnd && entry(mIt)->mbMarked && !mpList->mbShowMarked) {
        mIt = mIt->mpNext;
      }
    }
    tBase mIt = nullptr;
    tBase mEnd = nullptr;
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
  tList() : miSize(0), miLive(0), mbShowMarked(false) { mRing.mpNext = mRing.mpPrev = &mRing; }
  /// An empty list in the given mode.
  explicit tList(Marks marks) : miSize(0), miLive(0), mbShowMarked(marks == ShowMarked) {
    mRing.mpNext = mRing.mpPrev = &mRing;
  }
  /// The values in order.
  tList(std::initializer_list<T> values) : tList() {
    for (const T& v : values) {
      append(v);
    }
  }
  /// The same mode, and the entries a walk of `other` sees, with their marks.
  tList(const tList& other) : tList(other.mbShowMarked ? ShowMarked : SkipMarked) {
    for (const_iterator it = other.begin(); it != other.end(); ++it) {
      iterator added = append(*it);
      if (it.isMarked()) {
        eraseLater(added);
      }
    }
  }
  /// Takes over the mode and the entries of `other`, which is left empty.
  tList(tList&& other) noexcept : tList(other.mbShowMarked ? ShowMarked : SkipMarked) {
    mDisposer = other.mDisposer;
    takeRing(other);
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
  unsigned int size() const { return mbShowMarked ? miSize : miLive; }
  /// The same as size().
  unsigned int length() const { return size(); }
  /// Whether a walk sees no entry.
  bool empty() const { return size() == 0; }
  /// Whether entries wait for purge().
  bool hasMarked() const { return miSize != miLive; }
  /// Whether walks and size() include marked entries.
  bool showsMarked() const { return mbShowMarked; }

  /// The first entry a walk sees.
  iterator begin() { return iterator(mRing.mpNext, &mRing, this); }
  /// Past the last entry.
  iterator end() { return iterator(&mRing, &mRing, this); }
  /// The first entry a walk sees.
  const_iterator begin() const { return const_iterator(ring()->mpNext, ring(), this); }
  /// Past the last entry.
  const_iterator end() const { return const_iterator(ring(), ring(), this); }

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
    return entry(lastSeen())->mValue;
  }
  /// The last value a walk sees; an empty list throws cBugException.
  const T& last() const {
    if (empty()) {
      cSTDExceptions::throwElementNotFound("tList", "last");
    }
    return entry(const_cast<tList*>(this)->lastSeen())->mValue;
  }

  /// Adds `value` at the end; returns its position.
  iterator append(const T& value) { return insertAt(&mRing, value); }
  /// Adds `value` at the end; returns its position.
  iterator append(T&& value) { return insertAt(&mRing, std::move(value)); }
  /// Adds `value` at the front; returns its position.
  iterator prepend(const T& value) { return insertAt(mRing.mpNext, value); }
  /// Adds `value` at the front; returns its position.
  iterator prepend(T&& value) { return insertAt(mRing.mpNext, std::move(value)); }
  /// Before `position` (end() appends).
  iterator insert(iterator position, const T& value) { return insertAt(position.mIt, value); }
  /// Before `position` (end() appends).
  iterator insert(iterator position, T&& value) { return insertAt(position.mIt, std::move(value)); }

  /// Removes at once; returns the next entry. end() throws cBugException.
  iterator erase(iterator position) {
    checkPosition(position, "erase");
    tLinks* const next = position.mIt->mpNext;
    remove(entry(position.mIt));
    return iterator(next, &mRing, this);
  }
  /// Marks the entry for purge(); walks of a SkipMarked list skip it from now on.
  void eraseLater(iterator position) {
    checkPosition(position, "eraseLater");
    if (!entry(position.mIt)->mbMarked) {
      entry(position.mIt)->mbMarked = true;
      --miLive;
    }
  }
  /// Removes every marked entry. Not while a walk is under way.
  void purge() {
    for (tLinks* it = mRing.mpNext; it != &mRing;) {
      tLinks* const next = it->mpNext;
      if (entry(it)->mbMarked) remove(entry(it));
      it = next;
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
    // The list is empty before the first value is disposed of; the values
    // are destroyed after the last.
    miSize = 0;
    miLive = 0;
    if (mRing.mpNext == &mRing) {
      return;
    }
    tLinks old;
    old.mpNext = mRing.mpNext;
    old.mpPrev = mRing.mpPrev;
    old.mpNext->mpPrev = &old;
    old.mpPrev->mpNext = &old;
    mRing.mpNext = mRing.mpPrev = &mRing;
    for (tLinks* it = old.mpNext; it != &old; it = it->mpNext) {
      mDisposer.dispose(entry(it)->mValue);
    }
    for (tLinks* it = old.mpNext; it != &old;) {
      tLinks* const next = it->mpNext;
      destroy(entry(it));
      it = next;
    }
  }

  /// Exchanges mode and entries.
  void swap(tList& other) noexcept {
    tList held(SkipMarked);
    held.takeRing(other);
    other.takeRing(*this);
    takeRing(held);
    std::swap(mbShowMarked, other.mbShowMarked);
    std::swap(mDisposer, other.mDisposer);
  }

private:
  static_assert(alignof(tEntry) <= alignof(std::max_align_t), "tList: over-aligned value");

  template <typename V>
  iterator insertAt(tLinks* at, V&& value) {
    void* block = detail::allocateSmall(sizeof(tEntry));
    tEntry* e;
    try {
      e = ::new (block) tEntry(std::forward<V>(value));
    } catch (...) {
      detail::releaseSmall(block, sizeof(tEntry));
      throw;
    }
    e->mpNext = at;
    e->mpPrev = at->mpPrev;
    at->mpPrev->mpNext = e;
    at->mpPrev = e;
    ++miSize;
    ++miLive;
    return iterator(e, &mRing, this);
  }
  // Unlinks, disposes of and frees one entry.
  void remove(tEntry* e) {
    e->mpPrev->mpNext = e->mpNext;
    e->mpNext->mpPrev = e->mpPrev;
    --miSize;
    if (!e->mbMarked) {
      --miLive;
    }
    mDisposer.dispose(e->mValue);
    destroy(e);
  }
  static void destroy(tEntry* e) {
    e->~tEntry();
    detail::releaseSmall(e, sizeof(tEntry));
  }
  // Takes over the entries of `other` (this list holds none), which is left empty.
  void takeRing(tList& other) noexcept {
    if (other.mRing.mpNext != &other.mRing) {
      mRing.mpNext = other.mRing.mpNext;
      mRing.mpPrev = other.mRing.mpPrev;
      mRing.mpNext->mpPrev = &mRing;
      mRing.mpPrev->mpNext = &mRing;
      other.mRing.mpNext = other.mRing.mpPrev = &other.mRing;
    }
    miSize = other.miSize;
    miLive = other.miLive;
    other.miSize = 0;
    other.miLive = 0;
  }
  tLinks* ring() const { return const_cast<tLinks*>(&mRing); }
  void checkPosition(const iterator& position, const char* operation) {
    if (position.mIt == &mRing) {
      cSTDExceptions::throwElementNotFound("tList", operation);
    }
  }
  tLinks* lastSeen() {
    tLinks* it = &mRing;
    do {
      it = it->mpPrev;
    } while (entry(it)->mbMarked && !mbShowMarked);
    return it;
  }

  tLinks mRing;
  /// All entries, and those not marked.
  unsigned int miSize;
  unsigned int miLive;
  bool mbShowMarked;

protected:
  /// Disposes of the values of removed entries.
  Disposer mDisposer;
};

}  // namespace qstd

#endif
