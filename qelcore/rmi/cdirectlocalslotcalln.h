// A connection of a local signal to a member function of a connectable:
// calls the function directly and refuses every indirect call.
#ifndef QELCORE_RMI_CDIRECTLOCALSLOTCALLN_H
#define QELCORE_RMI_CDIRECTLOCALSLOTCALLN_H

#include <type_traits>

#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/crmiexceptions.h"

namespace qrmi {

template <class T, class R, class... A>
class cDirectLocalSlotCallN : public cAbstractSlotCallN<R, A...> {
  static_assert(std::is_base_of<cConnectable, T>::value, "slot targets derive from qrmi::cConnectable");

public:
  typedef R (T::*tMethod)(A...);

  cDirectLocalSlotCallN(T& target, tMethod method, cAbstractSignal* signal)
      : cAbstractSlotCallN<R, A...>(target, signal), mpTarget(&target), mpMethod(method) {}

  void invoke(R& result, A... args) const override { result = (mpTarget->*mpMethod)(args...); }
  void call(qsa::cAbstractDeserializer&, qsa::cAbstractSerializer&) const override {
    cRMIExceptions::throwIndirectLocalSlotCall();
  }
  void call(qsa::cReferenceFrame&) const override { cRMIExceptions::throwIndirectLocalSlotCall(); }
  cAbstractSlotCallN<R, A...>* clone() const override {
    return new cDirectLocalSlotCallN(*mpTarget, mpMethod, nullptr);
  }

  T* target() const { return mpTarget; }
  tMethod method() const { return mpMethod; }

private:
  T* mpTarget;
  tMethod mpMethod;
};

template <class T, class R>
using cDirectLocalSlotCall0 = cDirectLocalSlotCallN<T, R>;
template <class T, class R, class A1>
using cDirectLocalSlotCall1 = cDirectLocalSlotCallN<T, R, A1>;
template <class T, class R, class A1, class A2>
using cDirectLocalSlotCall2 = cDirectLocalSlotCallN<T, R, A1, A2>;
template <class T, class R, class A1, class A2, class A3>
using cDirectLocalSlotCall3 = cDirectLocalSlotCallN<T, R, A1, A2, A3>;
template <class T, class R, class A1, class A2, class A3, class A4>
using cDirectLocalSlotCall4 = cDirectLocalSlotCallN<T, R, A1, A2, A3, A4>;
template <class T, class R, class A1, class A2, class A3, class A4, class A5>
using cDirectLocalSlotCall5 = cDirectLocalSlotCallN<T, R, A1, A2, A3, A4, A5>;

}  // namespace qrmi

#endif
