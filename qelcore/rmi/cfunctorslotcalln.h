/// \class qrmi::cFunctorSlotCallN
/// A connection of a local signal to a function object (a lambda or a plain
/// function) that belongs to a receiver. The receiver is the slot call's
/// assigned object, so the connection ends when the receiver is destroyed or
/// detaches, exactly as a connection to one of its member functions does:
///
/// \code
///   door.sigOpened.connect(bell, [&bell](int times) { bell.ring(times); });
/// \endcode
///
/// A function whose result is void gives the default result (piVoid for the
/// signals without result). Like every local connection it refuses indirect
/// calls.
#ifndef QELCORE_RMI_CFUNCTORSLOTCALLN_H
#define QELCORE_RMI_CFUNCTORSLOTCALLN_H

#include <type_traits>

#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/crmiexceptions.h"
#include "qelcore/std/cstdexceptions.h"

namespace qrmi {

template <class F, class R, class... A>
class cFunctorSlotCallN : public cAbstractSlotCallN<R, A...> {
public:
  /// Calls `function`; the connection belongs to `owner` and ends with it.
  template <class G>
  cFunctorSlotCallN(cConnectable& owner, G&& function, cAbstractSignal* signal)
      : cAbstractSlotCallN<R, A...>(owner, signal), mFunction(static_cast<G&&>(function)) {}

  void invoke(R& result, A... args) const override {
    if constexpr (std::is_void<decltype(mFunction(args...))>::value) {
      mFunction(args...);
      result = R();
    } else {
      result = mFunction(args...);
    }
  }
  void call(qsa::cAbstractDeserializer&, qsa::cAbstractSerializer&) const override {
    cRMIExceptions::throwIndirectLocalSlotCall();
  }
  void call(qsa::cReferenceFrame&) const override { cRMIExceptions::throwIndirectLocalSlotCall(); }
  /// A copy of the function object, when it can be copied.
  cAbstractSlotCallN<R, A...>* clone() const override {
    if constexpr (std::is_copy_constructible<F>::value) {
      return new cFunctorSlotCallN(this->assignedObject(), mFunction, nullptr);
    } else {
      return cAbstractSlotCallN<R, A...>::clone();
    }
  }

  /// The function object called.
  const F& function() const { return mFunction; }

private:
  /// Called through a const slot call; a lambda may keep state of its own.
  mutable F mFunction;
};

/// Calls a member function that returns nothing, for a signal whose result
/// is piVoid.
template <class T, class... A>
struct tVoidMethod {
  T* mpTarget;  ///< the object called
  void (T::*mpMethod)(A...);  ///< its member function
  /// Calls the member function.
  void operator()(A... args) const { (mpTarget->*mpMethod)(args...); }
};

}  // namespace qrmi

#endif
