/// \class qrmi::cDirectLocalSlotCallN
/// A connection of a local signal to a member function of a connectable:
/// calls the function directly and refuses every indirect call.
#ifndef QELCORE_RMI_CDIRECTLOCALSLOTCALLN_H
#define QELCORE_RMI_CDIRECTLOCALSLOTCALLN_H

#include <type_traits>

#include "qelcore/rmi/cabstractboundcall.h"
#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/crmiexceptions.h"

namespace qrmi {

namespace detail {

/// Copies of a call's arguments, handed to a function as lvalues in their
/// order. Kept here rather than in a std::tuple so that declaring a signal
/// does not parse <tuple>.
template <class... V>
struct tBoundArgs {
  template <class F, class... Got>
  void apply(const F& f, Got&... got) {
    f(got...);
  }
};
template <class V, class... Rest>
struct tBoundArgs<V, Rest...> {
  template <class H, class... T>
  explicit tBoundArgs(const H& head, const T&... tail) : mHead(head), mTail(tail...) {}
  template <class F, class... Got>
  void apply(const F& f, Got&... got) {
    mTail.apply(f, got..., mHead);
  }
  V mHead;
  tBoundArgs<Rest...> mTail;
};

}  // namespace detail

/// A call of `method` on `target` with copies of the arguments, made later
/// on the target's thread unless the token says the target is gone.
template <class T, class R, class... A>
class tBoundSlotCallN : public cAbstractBoundCall {
public:
  /// Keeps `token` and copies of `args`.
  tBoundSlotCallN(cSlotTargetToken* token, T* target, R (T::*method)(A...), A... args)
      : mpToken(token), mpTarget(target), mpMethod(method), mArgs(args...) {
    mpToken->addRef();
  }
  ~tBoundSlotCallN() override { mpToken->release(); }
  /// Calls the method unless the target is gone.
  void call() override {
    if (mpToken->alive()) mArgs.apply([this](auto&... args) { (mpTarget->*mpMethod)(args...); });
  }

private:

  cSlotTargetToken* mpToken;
  T* mpTarget;
  R (T::*mpMethod)(A...);
  detail::tBoundArgs<std::decay_t<A>...> mArgs;
};

template <class T, class R, class... A>
class cDirectLocalSlotCallN : public cAbstractSlotCallN<R, A...> {
  static_assert(std::is_base_of<cConnectable, T>::value, "slot targets derive from qrmi::cConnectable");

public:
  /// The member function called.
  typedef R (T::*tMethod)(A...);

  /// Calls `method` on `target`, for `signal` (null: none yet).
  cDirectLocalSlotCallN(T& target, tMethod method, cAbstractSignal* signal)
      : cAbstractSlotCallN<R, A...>(target, signal), mpTarget(&target), mpMethod(method), mpToken(nullptr) {}
  /// The same target and method.
  cDirectLocalSlotCallN(const cDirectLocalSlotCallN& other)
      : cAbstractSlotCallN<R, A...>(other), mpTarget(other.mpTarget), mpMethod(other.mpMethod), mpToken(nullptr) {}
  /// Works made by createWork() and not yet run do nothing from now on.
  ~cDirectLocalSlotCallN() override {
    if (mpToken) cSlotTargetToken::drop(&mpToken);
  }

  void invoke(R& result, A... args) const override { result = (mpTarget->*mpMethod)(args...); }
  void call(qsa::cAbstractDeserializer&, qsa::cAbstractSerializer&) const override {
    cRMIExceptions::throwIndirectLocalSlotCall();
  }
  void call(qsa::cReferenceFrame&) const override { cRMIExceptions::throwIndirectLocalSlotCall(); }
  /// A single task, due at once, that calls the slot with copies of `args`
  /// when it runs; hand it to the receiver's queue (cWorkQueue::post from
  /// another thread). It may be made on any thread while the connection
  /// lives, and does nothing if the connection is gone by the time it runs. Arguments that cannot be
  /// copied make it an unsupported operation.
  qpi::cWork* createWork(A... args) const override {
    if constexpr ((std::is_copy_constructible<std::decay_t<A>>::value && ...)) {
      cSlotTargetToken* token = cSlotTargetToken::ensure(&mpToken);
      return cAbstractBoundCall::createWork(new tBoundSlotCallN<T, R, A...>(token, mpTarget, mpMethod, args...));
    } else {
      return cAbstractSlotCallN<R, A...>::createWork(args...);
    }
  }
  cAbstractSlotCallN<R, A...>* clone() const override {
    return new cDirectLocalSlotCallN(*mpTarget, mpMethod, nullptr);
  }

  /// The object called.
  T* target() const { return mpTarget; }
  /// The member function called.
  tMethod method() const { return mpMethod; }

private:
  T* mpTarget;
  tMethod mpMethod;
  mutable cSlotTargetToken* mpToken;
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
