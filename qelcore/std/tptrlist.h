// A tList of owned objects: an entry's object is deleted when the entry is
// removed (by erase, purge or clear) or the list goes. An entry marked with
// eraseLater() keeps its object alive until purge(), so an object may mark
// itself while it is running.
#ifndef QELCORE_STD_TPTRLIST_H
#define QELCORE_STD_TPTRLIST_H

#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tlist.h"

namespace qstd {

template <typename T>
struct tListDeleteElement {
  static void dispose(T*& p) {
    T* old = p;
    p = nullptr;
    delete old;
  }
};

template <typename T>
class tPtrList : public tList<T*, tListDeleteElement<T>> {
  typedef tList<T*, tListDeleteElement<T>> tBase;

public:
  typedef typename tBase::iterator iterator;

  tPtrList() {}
  tPtrList(const tPtrList&) = delete;
  tPtrList& operator=(const tPtrList&) = delete;
  tPtrList(tPtrList&& other) noexcept : tBase(std::move(other)) {}
  tPtrList& operator=(tPtrList&& other) noexcept {
    tBase::operator=(std::move(other));
    return *this;
  }

  // Take ownership of `p`, also when the insertion fails.
  iterator append(T* p) {
    tAutoPtr<T> owned(p);
    iterator it = tBase::append(p);
    owned.release();
    return it;
  }
  iterator append(tAutoPtr<T> p) { return append(p.release()); }
  iterator prepend(T* p) {
    tAutoPtr<T> owned(p);
    iterator it = tBase::prepend(p);
    owned.release();
    return it;
  }
  iterator insert(iterator position, T* p) {
    tAutoPtr<T> owned(p);
    iterator it = tBase::insert(position, p);
    owned.release();
    return it;
  }
  // Removes the entry at once and hands its object back undeleted.
  tAutoPtr<T> take(iterator position) {
    if (position == this->end()) {
      cSTDExceptions::throwElementNotFound("tPtrList", "take");
    }
    T* p = *position;
    *position = nullptr;
    tBase::erase(position);
    return tAutoPtr<T>(p);
  }
};

}  // namespace qstd

#endif
