/// \class qrmi::cIndirectResolvingSlotCallN
/// The slot call behind a public slot: calls a member function of a
/// connectable directly, or with arguments resolved from a reference frame or
/// read from an archive. Arguments that do not fit the slot raise
/// cCallParameterMissmatchException with the cause linked.
///
/// Created by registerPublicSlot (localSignalN<R, A...>::registerSlot, defined
/// here); it can also be connected to a local signal like any other slot call.
#ifndef QELCORE_RMI_CINDIRECTRESOLVINGSLOTCALLN_H
#define QELCORE_RMI_CINDIRECTRESOLVINGSLOTCALLN_H

#include <tuple>
#include <type_traits>
#include <utility>

#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/crmiexceptions.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/rmi/ttypestring.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/cstdexceptions.h"

namespace qrmi {

template <class T, class R, class... A>
class cIndirectResolvingSlotCallN : public cAbstractSlotCallN<R, A...> {
  static_assert(std::is_base_of<cConnectable, T>::value, "slot targets derive from qrmi::cConnectable");
  static_assert(tIsArchivable<R>::value, "the result of a public slot must be archivable");
  static_assert(std::conjunction<tIsArchivable<A>...>::value, "the parameters of a public slot must be archivable");

public:
  /// The member function called.
  typedef R (T::*tMethod)(A...);

  /// Calls `method` on `target`, directly or with archived arguments.
  cIndirectResolvingSlotCallN(T& target, tMethod method, cAbstractSignal* signal = nullptr)
      : cAbstractSlotCallN<R, A...>(target, signal), mpTarget(&target), mpMethod(method) {}

  void invoke(R& result, A... args) const override { result = (mpTarget->*mpMethod)(args...); }

  /// Reads the arguments in order from `in` (nothing may follow them), calls
  /// the slot, then writes the result and every alterable argument to `out`.
  void call(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out) const override {
    callFromArchive(in, out, std::index_sequence_for<A...>());
  }
  /// The frame holds the result first, then the arguments; the slot works on
  /// the frame's values, so the result and alterable arguments end up there.
  void call(qsa::cReferenceFrame& frame) const override { callFromFrame(frame, std::index_sequence_for<A...>()); }

  /// The object called.
  T* target() const { return mpTarget; }
  /// The member function called.
  tMethod method() const { return mpMethod; }

private:
  typedef std::tuple<tValueType<A>...> tValues;
  /// Constant unless the parameter is alterable.
  template <class P>
  using tFramePtr = std::conditional_t<tIsAlterable<P>::value, tValueType<P>*, const tValueType<P>*>;

  template <std::size_t... I>
  void callFromArchive(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out, std::index_sequence<I...>) const {
    tValues values;
    // Arguments that do not fit are left unread.
    qsa::cPositionGuard guard(in);
    try {
      int expand[] = {0, ((std::get<I>(values) << in), 0)...};
      (void)expand;
      if (!in.eoc()) {
        const qstd::cAsciiString expected = tTypeString<A...>::list();
        qstd::cSTDExceptions::throwTypeMissmatch(expected, expected + (sizeof...(A) ? ", ..." : "..."));
      }
    } catch (const qstd::cAbstractException& e) {
      cRMIExceptions::throwParameterMissmatch(this->isPublicSlot(), e);
    }
    guard.commit();
    tValueType<R> result = (mpTarget->*mpMethod)(std::get<I>(values)...);
    result >> out;
    int expand[] = {0, (storeIfAlterable<A>(std::get<I>(values), out), 0)...};
    (void)expand;
  }

  template <std::size_t... I>
  void callFromFrame(qsa::cReferenceFrame& frame, std::index_sequence<I...>) const {
    std::tuple<tFramePtr<A>...> args;
    R* result = nullptr;
    try {
      if (frame.count() != sizeof...(A) + 1)
        qstd::cSTDExceptions::throwTypeMissmatch(tTypeString<A...>::list(), frame.typeString(1));
      frame.rewind();
      if (sizeof...(A) > 0) frame.nextReference();
      int expand[] = {0, (std::get<I>(args) = &frame.next<std::remove_pointer_t<tFramePtr<A>>>(), 0)...};
      (void)expand;
      frame.rewind();
      result = &frame.next<R>();
    } catch (const qstd::cAbstractException& e) {
      cRMIExceptions::throwParameterMissmatch(this->isPublicSlot(), e);
    }
    *result = (mpTarget->*mpMethod)(*std::get<I>(args)...);
  }

  template <class P>
  static void storeIfAlterable(const tValueType<P>& value, qsa::cAbstractSerializer& out) {
    if constexpr (tIsAlterable<P>::value) value >> out;
  }

  T* mpTarget;
  tMethod mpMethod;
};

template <class T, class R>
using cIndirectResolvingSlotCall0 = cIndirectResolvingSlotCallN<T, R>;
template <class T, class R, class A1>
using cIndirectResolvingSlotCall1 = cIndirectResolvingSlotCallN<T, R, A1>;
template <class T, class R, class A1, class A2>
using cIndirectResolvingSlotCall2 = cIndirectResolvingSlotCallN<T, R, A1, A2>;
template <class T, class R, class A1, class A2, class A3>
using cIndirectResolvingSlotCall3 = cIndirectResolvingSlotCallN<T, R, A1, A2, A3>;
template <class T, class R, class A1, class A2, class A3, class A4>
using cIndirectResolvingSlotCall4 = cIndirectResolvingSlotCallN<T, R, A1, A2, A3, A4>;

/// \cond
/// The definition of localSignalN::registerSlot, which needs the class above;
/// it is documented where it is declared.
template <class R, class... A>
template <class T>
cPublicSlot& localSignalN<R, A...>::registerSlot(T& object, R (T::*method)(A...), const qstd::cAsciiString& name,
                                                 const qstd::cAsciiString& description) {
  qstd::tAutoPtr<cAbstractSlotCall> call(new cIndirectResolvingSlotCallN<T, R, A...>(object, method));
  cConnectable& owner = object;
  cPublicSlot& slot = owner.registerSlot(name, tTypeString<R>::list(), tTypeString<A...>::list(), description, call);
  int expand[] = {0, (describeValue<A>(slot.addParameter()), 0)...};
  (void)expand;
  describeValue<R>(slot.returnValue());
  return slot;
}
/// \endcond

/// Publishes a member function as a public slot: see localSignalN::registerSlot.
template <class T, class R, class... A>
cPublicSlot& registerPublicSlot(T& object, R (T::*method)(A...), const qstd::cAsciiString& name,
                                const qstd::cAsciiString& description = qstd::cAsciiString()) {
  return localSignalN<R, A...>::registerSlot(object, method, name, description);
}

}  // namespace qrmi

#endif
