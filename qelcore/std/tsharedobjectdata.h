/// \class qstd::tSharedObjectData
/// The counts shared by all handles (tSharedObject) of one object.
///
/// Object references count the live references to the object and drop to 0
/// when it is gone or invalidated; handles count the handles that still point
/// at this data, which is freed when they reach 0. The counts are plain
/// integers: one thread at a time, or the caller locks.
///
/// While the object lives every handle is one of its references, so only the
/// handles are counted, with a flag for the object: a handle that comes or
/// goes changes one number.
#ifndef QELCORE_STD_TSHAREDOBJECTDATA_H
#define QELCORE_STD_TSHAREDOBJECTDATA_H

#include "qelcore/qelexport.h"
#include "qelcore/std/csmallobject.h"

namespace qstd {

// One record is made for every shared object: records are small objects.
class QEL_EXPORT tSharedObjectData : public cSmallObject {
public:
  /// Deletes the object as the type it was created with, so that handles of a
  /// base type free it correctly.
  typedef void (*tDeleter)(void* object);

  /// One handle, one object reference; `deleter` frees `object` when `owns`.
  /// `block` is the size of the small block that holds this record and the
  /// object together (see tSharedObject::create), 0 for a record of its own.
  tSharedObjectData(bool owns, void* object, tDeleter deleter, unsigned int block = 0)
      : mbOwns(owns), mbAlive(true), miHandles(1), miBlock(block), mpObject(object), mpfnDeleter(deleter) {}
  tSharedObjectData(const tSharedObjectData&) = delete;
  tSharedObjectData& operator=(const tSharedObjectData&) = delete;

  /// Whether the object is deleted with its last reference.
  bool owns() const { return mbOwns; }
  /// The references that keep the object.
  unsigned int objectRefs() const { return mbAlive ? miHandles : 0; }
  /// Whether the object is still there (not gone, not invalidated).
  bool alive() const { return mbAlive; }
  /// The handles that keep this record.
  unsigned int handles() const { return miHandles; }

  /// A new handle joins.
  void addReference() { ++miHandles; }
  /// A handle leaves; returns true when the data itself must be freed now.
  /// The last one ends the object first, unless it is gone already.
  bool dropReference() {
    if (--miHandles != 0) return false;
    if (mbAlive) {
      mbAlive = false;
      endObject();
    }
    // The object's destructor may have kept a handle to this data.
    return miHandles == 0;
  }
  /// A handle leaves and frees the data when it was the last one. Out of line:
  /// inlined into code with several handles of one data, optimising compilers
  /// cannot see that only the last drop frees it and warn about the others.
  static void release(tSharedObjectData* data);
  /// Frees a record whose handles are gone, with the block it shares with
  /// its object, if it does.
  static void destroy(tSharedObjectData* data) {
    if (const unsigned int block = data->miBlock) {
      data->~tSharedObjectData();
      detail::releaseSmall(data, block);
    } else {
      delete data;
    }
  }
  /// Ends the object for all handles.
  void invalidate() {
    if (mbAlive) {
      mbAlive = false;
      endObject();
    }
  }

  /// cBugException "Invalid shared object dereference!".
  [[noreturn]] static void throwWrongSharedObjectDereference();

private:
  template <typename T>
  friend class tSharedObject;

  /// The deletion counts as one more handle, so that the object's destructor
  /// may drop handles to this data without freeing it.
  void endObject() {
    if (mbOwns && mpfnDeleter != nullptr) {
      void* object = mpObject;
      mpObject = nullptr;
      ++miHandles;
      mpfnDeleter(object);
      --miHandles;
    }
  }

  bool mbOwns;
  /// Cleared when the object ends: objectRefs() is then 0.
  bool mbAlive;
  unsigned int miHandles;
  unsigned int miBlock;
  void* mpObject;
  tDeleter mpfnDeleter;
};

}  // namespace qstd

#endif
