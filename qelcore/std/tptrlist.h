/// \class qstd::tPtrList
/// A tList of objects held by pointer. By default the list owns them: an
/// entry's object is deleted when the entry is removed (by erase, purge or
/// clear) or the list goes. An entry marked with eraseLater() keeps its object
/// alive until purge(), so an object may mark itself while it is running.
/// A list made with autoDelete false only lists objects owned elsewhere.
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
/// What tPtrList does with an entry it removes: deletes the object when the list owns it.
template <typename T>
struct tListDeleteElement {
  /// Nulls the entry and, when owning, deletes its object.
  void dispose(T*& p) const {
    T* old = p;
    p = nullptr;
    if (mbAutoDelete) {
      delete old;
    }
  }
  /// Whether the list owns its objects.
  bool mbAutoDelete = true;
};
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

template <typename T>
class tPtrList : public tList<T*, tListDeleteElement<T>> {
  typedef tList<T*, tListDeleteElement<T>> tBase;

public:
  /// Walks the entries not marked for erasure.
  typedef typename tBase::iterator iterator;

  /// An owning list.
  tPtrList() {}
  /// Owning when `autoDelete` is true.
  explicit tPtrList(bool autoDelete) { this->mDisposer.mbAutoDelete = autoDelete; }
  ///@{
  /// Not copyable: an owning list cannot share its objects.
  tPtrList(const tPtrList&) = delete;
  tPtrList& operator=(const tPtrList&) = delete;
  ///@}
  /// Takes over the entries and the ownership of `other`, which is left empty.
  tPtrList(tPtrList&& other) noexcept : tBase(std::move(other)) {}
  /// Takes over the entries and the ownership of `other`, which is left empty.
  tPtrList& operator=(tPtrList&& other) noexcept {
    tBase::operator=(std::move(other));
    return *this;
  }

  /// Whether the list deletes the objects of the entries it removes.
  bool autoDelete() const { return this->mDisposer.mbAutoDelete; }
  /// Applies to the entries removed from now on.
  void setAutoDelete(bool on) { this->mDisposer.mbAutoDelete = on; }

  /// An owning list takes `p` over, also when the insertion fails.
  iterator append(T* p) {
    tAutoPtr<T> owned(autoDelete() ? p : nullptr);
    iterator it = tBase::append(p);
    owned.release();
    return it;
  }
  /// Appends the object that `p` held; an owning list takes it over.
  iterator append(tAutoPtr<T> p) { return append(p.release()); }
  /// Adds `p` at the front; an owning list takes `p` over, also when the insertion fails.
  iterator prepend(T* p) {
    tAutoPtr<T> owned(autoDelete() ? p : nullptr);
    iterator it = tBase::prepend(p);
    owned.release();
    return it;
  }
  /// Adds `p` before `position`; an owning list takes `p` over, also when the insertion fails.
  iterator insert(iterator position, T* p) {
    tAutoPtr<T> owned(autoDelete() ? p : nullptr);
    iterator it = tBase::insert(position, p);
    owned.release();
    return it;
  }
  /// Removes the entry at once and hands its object back undeleted (an
  /// owning tAutoPtr only if the list owned it). end() throws cBugException.
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
