/// \class qrmi::cAbstractSlotCallN
/// The typed slot call: what a signal with return type R and arguments A...
/// holds for every connection.
///
/// \code
///   cAbstractSlotCall0<piVoid>               a slot without arguments
///   cAbstractSlotCall2<piVoid, int, bool>    a slot taking (int, bool)
/// \endcode
#ifndef QELCORE_RMI_CABSTRACTSLOTCALLN_H
#define QELCORE_RMI_CABSTRACTSLOTCALLN_H

#include <type_traits>

#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/rmi/crmiexceptions.h"
#include "qelcore/rmi/ttypestring.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qpi {
class cWork;
}

namespace qrmi {

template <class R, class... A>
class localSignalN;

template <class R, class... A>
class cAbstractSlotCallN : public cAbstractSlotCall {
public:
  /// The slot's result type.
  typedef R tResult;

  /// A call to a slot of `object`, owned by `signal` (null: none yet).
  cAbstractSlotCallN(cConnectable& object, cAbstractSignal* signal)
      : cAbstractSlotCall(object, signal), mbCalled(false) {}
  /// The same receiver and signal.
  cAbstractSlotCallN(const cAbstractSlotCallN& other) : cAbstractSlotCall(other), mbCalled(false) {}

  /// The typed call: stores the slot's result in `result`.
  virtual void invoke(R& result, A... args) const = 0;
  /// The type string of the result, as the type-string serializer writes it.
  virtual qstd::cAsciiString returnTypeString() const { return tTypeString<R>::list(); }
  /// The type string of the parameter list.
  virtual qstd::cAsciiString parametersTypeString() const { return tTypeString<A...>::list(); }
  /// Calls through references to the caller's variables: no slot call of this
  /// library supports it.
  virtual void invokeByReference(R&, std::remove_reference_t<A>&...) const {
    cRMIExceptions::throwIndirectCallSlotCallRef();
  }
  /// A new work (owned by the caller) that calls this slot with `args` when
  /// it runs, so that the call can be handed to a work queue. The work queue
  /// integration overrides this; until then it is unsupported.
  virtual qpi::cWork* createWork(A...) const {
    qstd::cSTDExceptions::throwUnsupportedOperation("cAbstractSlotCallN::createWork(...)");
  }
  /// A new slot call (owned by the caller) to the same receiver, attached to
  /// no signal yet, so that a signal can connect it. Slot calls that cannot
  /// be copied throw an unsupported-operation bug exception.
  virtual cAbstractSlotCallN* clone() const {
    qstd::cSTDExceptions::throwUnsupportedOperation("cAbstractSlotCallN::clone()");
  }

  /// Whether the current emission of the owning signal has called this slot.
  bool isCalled() const { return mbCalled; }

private:
  friend class localSignalN<R, A...>;
  bool mbCalled;
};

template <class R>
using cAbstractSlotCall0 = cAbstractSlotCallN<R>;
template <class R, class A1>
using cAbstractSlotCall1 = cAbstractSlotCallN<R, A1>;
template <class R, class A1, class A2>
using cAbstractSlotCall2 = cAbstractSlotCallN<R, A1, A2>;
template <class R, class A1, class A2, class A3>
using cAbstractSlotCall3 = cAbstractSlotCallN<R, A1, A2, A3>;
template <class R, class A1, class A2, class A3, class A4>
using cAbstractSlotCall4 = cAbstractSlotCallN<R, A1, A2, A3, A4>;
template <class R, class A1, class A2, class A3, class A4, class A5>
using cAbstractSlotCall5 = cAbstractSlotCallN<R, A1, A2, A3, A4, A5>;

}  // namespace qrmi

#endif
