// A tList of objects held by pointer. By default the list owns them: an
// entry's object is deleted when the entry is removed (by erase, purge or
// clear) or the list goes. An entry marked with eraseLater() keeps its object
// alive until purge(), so an object may mark itself while it is running.
// A list made with autoDelete false only lists objects owned elsewhere.
#ifndef QELCORE_STD_TPTRLIST_H
#define QELCORE_STD_TPTRLIST_H

#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tlist.h"

namespace qstd {

// With a list of objects owned elsewhere, an optimising g++ sees the delete
// below reached with the address of a local object and warns, although the
// flag keeps that path from running.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wfree-nonheap-object"
#endif
template <typename T>
struct tListDeleteElement {
  void dispose(T*& p) const {
    T* old = p;
    p = nullptr;
    if (mbAutoDelete) {
      delete old;
    }
  }
  bool mbAutoDelete = true;
};
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

template <typename T>
class tPtrList : public tList<T*, tListDeleteElement<T>> {
  typedef tList<T*, tListDeleteElement<T>> tBase;

public:
  typedef typename tBase::iterator iterator;

  tPtrList() {}
  explicit tPtrList(bool autoDelete) { this->mDisposer.mbAutoDelete = autoDelete; }
  tPtrList(const tPtrList&) = delete;
  tPtrList& operator=(const tPtrList&) = delete;
  tPtrList(tPtrList&& other) noexcept : tBase(std::move(other)) {}
  tPtrList& operator=(tPtrList&& other) noexcept {
    tBase::operator=(std::move(other));
    return *this;
  }

  bool autoDelete() const { return this->mDisposer.mbAutoDelete; }
  // Applies to the entries removed from now on.
  void setAutoDelete(bool on) { this->mDisposer.mbAutoDelete = on; }

  // An owning list takes `p` over, also when the insertion fails.
  iterator append(T* p) {
    tAutoPtr<T> owned(autoDelete() ? p : nullptr);
    iterator it = tBase::append(p);
    owned.release();
    return it;
  }
  iterator append(tAutoPtr<T> p) { return append(p.release()); }
  iterator prepend(T* p) {
    tAutoPtr<T> owned(autoDelete() ? p : nullptr);
    iterator it = tBase::prepend(p);
    owned.release();
    return it;
  }
  iterator insert(iterator position, T* p) {
    tAutoPtr<T> owned(autoDelete() ? p : nullptr);
    iterator it = tBase::insert(position, p);
    owned.release();
    return it;
  }
  // Removes the entry at once and hands its object back undeleted (an
  // owning tAutoPtr only if the list owned it).
  tAutoPtr<T> take(iterator position) {
    if (position == this->end()) {
      cSTDExceptions::throwElementNotFound("tPtrList", "take");
    }
    T* p = *position;
    *position = nullptr;
    tBase::erase(position);
    return tAutoPtr<T>(p, autoDelete() ? tAutoPtrType::SingleObject : tAutoPtrType::NotOwned);
  }
};

}  // namespace qstd

#endif
