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
}  // namespace detail

/// schedule() for a member function of a connectable.
template <class T>
qstd::tSharedObject<cWork> schedule(T& object, qsa::piVoid (T::*method)(), unsigned int interval, cWork::Type type,
                                    const char* name) {
  return detail::scheduleCall(new qrmi::cDirectLocalSlotCallN<T, qsa::piVoid>(object, method, nullptr), interval, type,
                              name);
}
/// schedule() for a member function of a connectable, as a single task.
template <class T>
qstd::tSharedObject<cWork> schedule(T& object, qsa::piVoid (T::*method)(), unsigned int interval, const char* name) {
  return schedule(object, method, interval, cWork::SingleTask, name);
}

}  // namespace qpi

#endif
