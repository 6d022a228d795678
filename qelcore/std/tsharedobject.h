/// \class qstd::tSharedObject
/// A counted handle to an object that several holders share, with or without
/// owning it. invalidateObject() ends the object for every holder at once;
/// the handles then report null() but stay valid until they go.
#ifndef QELCORE_STD_TSHAREDOBJECT_H
#define QELCORE_STD_TSHAREDOBJECT_H

#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tsharedobjectdata.h"

namespace qstd {

template <typename T>
class tSharedObject {
public:
  tSharedObject() : mpData(nullptr), mpObject(nullptr) {}
  /// Owning; a null pointer gives an empty handle.
  explicit tSharedObject(T* p) : mpData(nullptr), mpObject(nullptr) { adopt(p, tAutoPtrType::SingleObject); }
  /// Shares an object it does not own.
  explicit tSharedObject(T& object) : mpData(new tSharedObjectData(false, nullptr, nullptr)), mpObject(&object) {}
  /// Owning, takes the pointer over (an array is freed as an array, a pointer
  /// the holder did not own is not freed).
  template <typename U>
  tSharedObject(tAutoPtr<U> p) : mpData(nullptr), mpObject(nullptr) {
    const tAutoPtrType::PointerType type = p.pointerType();
    U* object = p.get();
    adopt(object, type);
    p.release();
  }
  ///@{
  /// Joins existing shared data (conversions between related types).
  tSharedObject(tSharedObjectData* data, T* object) : mpData(data), mpObject(object) {
    if (mpData != nullptr) {
      mpData->addReference();
    }
  }
  tSharedObject(const tSharedObject& other) : tSharedObject(other.mpData, other.mpObject) {}
  ///@}
  /// A handle of a related type onto the same data; as null as `other` (the
  /// pointer of an object that is gone is not converted: that may read it).
  template <typename U>
  tSharedObject(const tSharedObject<U>& other)
      : tSharedObject(other.sharedData(), other.null() ? nullptr : other.rawObject()) {}
  /// Takes the other handle over; it is left empty.
  tSharedObject(tSharedObject&& other) noexcept : mpData(other.mpData), mpObject(other.mpObject) {
    other.mpData = nullptr;
    other.mpObject = nullptr;
  }
  ~tSharedObject() { drop(); }

  /// A new T made from `args` and owned by the new handle, in one block of
  /// the thread's small-block cache together with the shared record: one
  /// allocation instead of two, for objects made at a high rate.
  template <typename... Args>
  static tSharedObject create(Args&&... args) {
    static_assert(alignof(T) <= 16, "tSharedObject::create: over-aligned type");
    const unsigned int bytes = static_cast<unsigned int>(kObjectOffset + sizeof(T));
    void* block = detail::allocateSmall(bytes);
    tSharedObjectData* data = ::new (block) tSharedObjectData(true, nullptr, &destroyObject<T>, bytes);
    T* object;
    try {
      object = ::new (static_cast<char*>(block) + kObjectOffset) T(static_cast<Args&&>(args)...);
    } catch (...) {
      data->~tSharedObjectData();
      detail::releaseSmall(block, bytes);
      throw;
    }
    data->mpObject = const_cast<void*>(static_cast<const void*>(object));
    tSharedObject handle;
    handle.mpData = data;
    handle.mpObject = object;
    return handle;
  }

  ///@{
  /// Lets go of the object held and shares (or takes over) the other's.
  tSharedObject& operator=(const tSharedObject& other) {
    tSharedObject copy(other);
    swap(copy);
    return *this;
  }
  tSharedObject& operator=(tSharedObject&& other) noexcept {
  ///@}
    tSharedObject taken(static_cast<tSharedObject&&>(other));
    swap(taken);
    return *this;
  }

  /// Null while the handle is null().
  T* get() const { return null() ? nullptr : mpObject; }
  /// get().
  T* operator->() const { return get(); }
  /// The object; a null handle throws.
  T& operator*() const {
    if (null()) {
      tSharedObjectData::throwWrongSharedObjectDereference();
    }
    return *mpObject;
  }
  /// No object, or it was invalidated.
  bool null() const { return mpData == nullptr || !mpData->alive(); }
  /// Not null().
  explicit operator bool() const { return !null(); }
  /// How many handles keep the object.
  unsigned int refCount() const { return mpData == nullptr ? 0 : mpData->objectRefs(); }
  /// This is the only handle keeping it.
  bool unique() const { return refCount() == 1; }

  /// Becomes a new owning handle of `p`.
  void reset(T* p = nullptr) {
    tSharedObject fresh(p);
    swap(fresh);
  }
  /// Ends the object for all holders (deleting it when owned).
  void invalidateObject() {
    if (mpData != nullptr) {
      mpData->invalidate();
    }
  }

  /// Exchanges two handles.
  void swap(tSharedObject& other) noexcept {
    tSharedObjectData* d = mpData;
    mpData = other.mpData;
    other.mpData = d;
    T* o = mpObject;
    mpObject = other.mpObject;
    other.mpObject = o;
  }

  /// A handle of another type onto the same shared data (a static cast);
  /// empty when this handle is null().
  template <typename U>
  tSharedObject<U> staticCast() const {
    return null() ? tSharedObject<U>() : tSharedObject<U>(mpData, static_cast<U*>(mpObject));
  }
  /// The same with a dynamic cast; empty too when the cast fails.
  template <typename U>
  tSharedObject<U> dynamicCast() const {
    U* p = null() ? nullptr : dynamic_cast<U*>(mpObject);
    return p == nullptr ? tSharedObject<U>() : tSharedObject<U>(mpData, p);
  }

  /// The shared record (for handles of other types).
  tSharedObjectData* sharedData() const { return mpData; }
  /// The pointer this handle was made with, valid or not.
  T* rawObject() const { return mpObject; }

private:
  /// Where create() places the object: past the record, aligned as operator
  /// new aligns.
  static constexpr std::size_t kObjectOffset = (sizeof(tSharedObjectData) + 15u) & ~std::size_t(15u);

  template <typename U>
  static void destroyObject(void* p) {
    static_cast<U*>(p)->~U();
  }
  template <typename U>
  static void deleteObject(void* p) {
    delete static_cast<U*>(p);
  }
  template <typename U>
  static void deleteArray(void* p) {
    delete[] static_cast<U*>(p);
  }

  template <typename U>
  void adopt(U* p, tAutoPtrType::PointerType type) {
    if (p == nullptr) {
      return;
    }
    tSharedObjectData::tDeleter deleter = nullptr;
    if (type == tAutoPtrType::SingleObject) {
      deleter = &deleteObject<U>;
    } else if (type == tAutoPtrType::ArrayObject) {
      deleter = &deleteArray<U>;
    }
    // The data keeps a plain pointer; deleting through one to const is fine.
    void* object = const_cast<void*>(static_cast<const void*>(p));
    try {
      mpData = new tSharedObjectData(deleter != nullptr, object, deleter);
    } catch (...) {
      if (deleter != nullptr) {
        deleter(object);
      }
      throw;
    }
    mpObject = p;
  }

  void drop() {
    tSharedObjectData* data = mpData;
    if (data == nullptr) {
      return;
    }
    if (data->dropReference()) tSharedObjectData::destroy(data);
    mpData = nullptr;
    mpObject = nullptr;
  }

  tSharedObjectData* mpData;
  T* mpObject;
};

template <typename T, typename U>
inline bool operator==(const tSharedObject<T>& a, const tSharedObject<U>& b) {
  return a.get() == b.get();
}
template <typename T, typename U>
inline bool operator!=(const tSharedObject<T>& a, const tSharedObject<U>& b) {
  return a.get() != b.get();
}

}  // namespace qstd

#endif
