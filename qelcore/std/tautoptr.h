/// \class qstd::tAutoPtr
/// The sole owner of one object or one array. Copying transfers ownership:
/// the source is left empty. Every factory of the library returns one.
#ifndef QELCORE_STD_TAUTOPTR_H
#define QELCORE_STD_TAUTOPTR_H

#include <type_traits>

#include "qelcore/std/tautoptrref.h"
#include "qelcore/std/tautoptrtype.h"

namespace qstd {

template <typename T>
class tAutoPtr {
public:
  /// How the held pointer is freed: delete, delete[] or not at all.
  typedef tAutoPtrType::PointerType PointerType;

  tAutoPtr() : mpPtr(nullptr), meType(tAutoPtrType::SingleObject) {}
  /// Holds `p`, to be freed as `type` says.
  explicit tAutoPtr(T* p, PointerType type = tAutoPtrType::SingleObject) : mpPtr(p), meType(type) {}
  ///@{
  /// Takes over what `other` holds; `other` is left empty.
  tAutoPtr(tAutoPtr& other) : mpPtr(other.mpPtr), meType(other.meType) { other.mpPtr = nullptr; }
  tAutoPtr(tAutoPtr&& other) noexcept : mpPtr(other.mpPtr), meType(other.meType) { other.mpPtr = nullptr; }
  ///@}
  ///@{
  /// From a holder of a derived type (only: overloads taking holders of
  /// unrelated types stay apart).
  template <typename U, typename = typename std::enable_if<std::is_convertible<U*, T*>::value>::type>
  tAutoPtr(tAutoPtr<U>& other) : mpPtr(other.get()), meType(other.pointerType()) {
    other.release();
  }
  template <typename U, typename = typename std::enable_if<std::is_convertible<U*, T*>::value>::type>
  tAutoPtr(tAutoPtr<U>&& other) : mpPtr(other.get()), meType(other.pointerType()) {
    other.release();
  }
  ///@}
  /// Takes the pointer handed over through a tAutoPtrRef.
  tAutoPtr(tAutoPtrRef<T> ref) : mpPtr(ref.mpPtr), meType(ref.meType) {}
  virtual ~tAutoPtr() { dispose(); }

  ///@{
  /// Free what this holds and take over what the other holds (left empty);
  /// assigning a holder to itself changes nothing.
  tAutoPtr& operator=(tAutoPtr& other) {
    take(other);
    return *this;
  }
  tAutoPtr& operator=(tAutoPtr&& other) noexcept {
    take(other);
    return *this;
  }
  template <typename U>
  tAutoPtr& operator=(tAutoPtr<U>& other) {
    const PointerType type = other.pointerType();
    reset(other.release(), type);
    return *this;
  }
  template <typename U>
  tAutoPtr& operator=(tAutoPtr<U>&& other) {
    const PointerType type = other.pointerType();
    reset(other.release(), type);
    return *this;
  }
  tAutoPtr& operator=(tAutoPtrRef<T> ref) {
    reset(ref.mpPtr, ref.meType);
    return *this;
  }
  ///@}
  ///@{
  /// Hands the pointer over to a tAutoPtrRef; this is left empty.
  template <typename U>
  operator tAutoPtrRef<U>() {
    const PointerType type = meType;
    return tAutoPtrRef<U>(release(), type);
  }
  ///@}

  /// The held pointer, null when empty.
  T* get() const { return mpPtr; }
  ///@{
  /// The held object; the holder must not be empty.
  T& operator*() const { return *mpPtr; }
  T* operator->() const { return mpPtr; }
  ///@}
  /// Element of a held array.
  T& operator[](unsigned int index) const { return mpPtr[index]; }
  /// Whether a pointer is held.
  explicit operator bool() const { return mpPtr != nullptr; }
  /// How the held pointer is freed.
  PointerType pointerType() const { return meType; }

  /// Gives the pointer up without freeing it.
  T* release() {
    T* p = mpPtr;
    mpPtr = nullptr;
    return p;
  }
  /// Frees the held pointer unless it is `p`, then holds `p`.
  void reset(T* p = nullptr, PointerType type = tAutoPtrType::SingleObject) {
    if (p != mpPtr) {
      dispose();
    }
    mpPtr = p;
    meType = type;
  }
  /// The same as reset().
  void reinit(T* p = nullptr, PointerType type = tAutoPtrType::SingleObject) { reset(p, type); }
  ///@{
  /// Exchanges the pointers and their types.
  void swap(tAutoPtr& other) noexcept {
    T* p = mpPtr;
    mpPtr = other.mpPtr;
    other.mpPtr = p;
    const PointerType t = meType;
    meType = other.meType;
    other.meType = t;
  }
  ///@}

private:
  void take(tAutoPtr& other) {
    if (&other != this) {
      const PointerType type = other.meType;
      reset(other.release(), type);
    }
  }
  void dispose() {
    T* p = mpPtr;
    if (p == nullptr) {
      return;
    }
    if (meType == tAutoPtrType::SingleObject) {
      delete p;
    } else if (meType == tAutoPtrType::ArrayObject) {
      delete[] p;
    }
  }

  T* mpPtr;
  PointerType meType;
};

}  // namespace qstd

#endif
