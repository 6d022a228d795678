/// \class qstd::tParentWatch
/// A pointer to an object that may die first: it becomes null by itself when
/// the object is destroyed. The watched type announces its destruction
/// through a member signal `sigDestroyed` (localSignal1<piVoid, const T&>),
/// as qpi::cWork does.
///
/// \code
///   qstd::tParentWatch<qpi::cWork> parent(&work);
///   delete &work;            // parent.get() is now null
///   if (parent) parent->stop();
/// \endcode
///
/// Dereferencing a null watch fails the assertion "mpObject != 0".
#ifndef QELCORE_STD_TPARENTWATCH_H
#define QELCORE_STD_TPARENTWATCH_H

#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/cstdexceptions.h"

namespace qstd {

template <class T>
class tParentWatch : public qrmi::cConnectable {
public:
  /// Watches nothing.
  tParentWatch() : mpObject(nullptr) {}
  /// Watches `object`.
  explicit tParentWatch(T* object) : mpObject(nullptr) { set(object); }
  tParentWatch(const tParentWatch&) = delete;
  tParentWatch& operator=(const tParentWatch&) = delete;

  /// Watches `object` instead (null watches nothing).
  void set(T* object) {
    if (object == mpObject) return;
    if (mpObject) mpObject->sigDestroyed.disconnect(*this);
    mpObject = nullptr;
    if (object) {
      object->sigDestroyed.connect(*this, &tParentWatch::sltDestroyed);
      mpObject = object;
    }
  }
  /// set(object).
  tParentWatch& operator=(T* object) {
    set(object);
    return *this;
  }

  /// The object; null once it is gone.
  T* get() const { return mpObject; }
  /// The object; an assertion while there is none.
  T& operator*() const {
    QEL_ASSERT(mpObject != 0, "std/tparentwatch");
    return *mpObject;
  }
  /// The object's members; an assertion while there is none.
  T* operator->() const {
    QEL_ASSERT(mpObject != 0, "std/tparentwatch");
    return mpObject;
  }
  /// Whether the object is there.
  explicit operator bool() const { return mpObject != nullptr; }

private:
  /// The signal dies with its owner right after this; its slot call goes then.
  qsa::piVoid sltDestroyed(const T&) {
    mpObject = nullptr;
    return qsa::piVoid();
  }

  T* mpObject;
};

}  // namespace qstd

#endif
