/// \file
/// Scheduling on the system's main work queue.
///
/// \code
/// class cClock : public qrmi::cConnectable {
/// public:
///   qsa::piVoid sltTick();
/// };
/// cClock clock;
/// qstd::tSharedObject<qpi::cWork> tick = qpi::schedule(
///     qrmi::cDirectLocalSlotCall0<cClock, qsa::piVoid>(clock, &cClock::sltTick, nullptr), 1000,
///     qpi::cWork::Periodic, "clock tick");
/// qpi::schedule(clock, &cClock::sltTick, 0, "tick once now");   // the same, shorter
/// ...
/// tick->stop();
/// \endcode
///
/// A work scheduled without a name (null) is scheduled all the same; the
/// debug output notes where that happened.
#ifndef QELCORE_PI_SCHEDULE_H
#define QELCORE_PI_SCHEDULE_H

#include <cstddef>
#include <new>

#include "qelcore/pi/cwork.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cdirectlocalslotcalln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tsharedobject.h"

namespace qpi {

/// A new work on the main queue that calls `slot` (a copy of it) after
/// `interval` ms, once or (type Periodic) every `interval` ms.
QEL_EXPORT qstd::tSharedObject<cWork> schedule(const qrmi::cAbstractSlotCall0<qsa::piVoid>& slot, unsigned int interval,
                                               cWork::Type type, const char* name);
/// A single task.
QEL_EXPORT qstd::tSharedObject<cWork> schedule(const qrmi::cAbstractSlotCall0<qsa::piVoid>& slot, unsigned int interval,
                                               const char* name);
/// Adds a work the queue then owns (not started here).
QEL_EXPORT qstd::tSharedObject<cWork> schedule(qstd::tAutoPtr<cWork> work);
/// Adds a work by reference (not started here).
QEL_EXPORT cWork& schedule(cWork& work);
/// Takes the work off the main queue.
QEL_EXPORT void unschedule(cWork& work);

namespace detail {
/// schedule() for a slot call made for it (owned from here on, also when
/// this throws): the work connects it as it is, without a copy.
QEL_EXPORT qstd::tSharedObject<cWork> scheduleCall(qrmi::cAbstractSlotCall0<qsa::piVoid>* slot, unsigned int interval,
                                                   cWork::Type type, const char* name);

/// Makes the slot call in `room` from `args`; the signal owns it then.
typedef qrmi::cAbstractSlotCall0<qsa::piVoid>* (*tMakeTriggerSlot)(void* room, const void* args);
/// scheduleCall() for a slot call that `make` builds inside the new work, in
/// its room for one (see cTriggerRoom): no allocation for it.
QEL_EXPORT qstd::tSharedObject<cWork> scheduleInRoom(tMakeTriggerSlot make, const void* args, unsigned int interval,
                                                     cWork::Type type, const char* name);

/// A work's room for its trigger slot call.
struct cTriggerRoom {
  static constexpr std::size_t size() { return sizeof(cWork::macTriggerSlot); }
  static void* of(cWork& work) { return work.macTriggerSlot; }
};

/// A member function's slot call made inside a work: the signal's delete
/// only ends it, the work's storage stays.
template <class T>
class tTriggerSlot final : public qrmi::cDirectLocalSlotCallN<T, qsa::piVoid> {
public:
  typedef qsa::piVoid (T::*tMethod)();
  struct cArgs {
    T* mpObject;
    tMethod mpMethod;
  };
  /// Whether one fits into the room (else schedule() allocates it).
  static constexpr bool fits() {
    return sizeof(tTriggerSlot) <= cTriggerRoom::size() && alignof(tTriggerSlot) <= alignof(void*);
  }

  tTriggerSlot(T& object, tMethod method) : qrmi::cDirectLocalSlotCallN<T, qsa::piVoid>(object, method, nullptr) {}
  static qrmi::cAbstractSlotCall0<qsa::piVoid>* make(void* room, const void* args) {
    const cArgs& a = *static_cast<const cArgs*>(args);
    return ::new (room) tTriggerSlot(*a.mpObject, a.mpMethod);
  }
  static void* operator new(std::size_t) = delete;
  static void operator delete(void*) noexcept {}
};
}  // namespace detail

/// schedule() for a member function of a connectable.
template <class T>
qstd::tSharedObject<cWork> schedule(T& object, qsa::piVoid (T::*method)(), unsigned int interval, cWork::Type type,
                                    const char* name) {
  if constexpr (detail::tTriggerSlot<T>::fits()) {
    const typename detail::tTriggerSlot<T>::cArgs args{&object, method};
    return detail::scheduleInRoom(&detail::tTriggerSlot<T>::make, &args, interval, type, name);
  } else {
    return detail::scheduleCall(new qrmi::cDirectLocalSlotCallN<T, qsa::piVoid>(object, method, nullptr), interval,
                                type, name);
  }
}
/// schedule() for a member function of a connectable, as a single task.
template <class T>
qstd::tSharedObject<cWork> schedule(T& object, qsa::piVoid (T::*method)(), unsigned int interval, const char* name) {
  return schedule(object, method, interval, cWork::SingleTask, name);
}

}  // namespace qpi

#endif
