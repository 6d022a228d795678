/// \class qrmi::localSignalN
/// A signal whose slots are member functions of connectables, bound to C++
/// types at compile time.
///
/// \code
/// class cDoor : public qrmi::cConnectable {
/// public:
///   qrmi::localSignal1<piVoid, int> sigOpened;
/// };
/// class cBell : public qrmi::cConnectable {
/// public:
///   piVoid sltRing(int times);
/// };
/// door.sigOpened.connect(bell, &cBell::sltRing);
/// door.sigOpened(3);
/// \endcode
///
/// The signal owns one slot call per connection. A receiver's destruction
/// removes its slot calls; the signal's destruction destroys all of them.
/// connect() returns a handle (tConnection) that can end that one connection.
/// Slots may also be member functions declared void (signals with result
/// piVoid), and lambdas or functions that belong to a receiver:
///
/// \code
/// door.sigOpened.connect(bell, [&bell](int times) { bell.ring(times); });
/// \endcode
///
/// Declaring a signal needs this header only; publishing slots by name
/// (registerPublicSlot) is in cindirectresolvingslotcalln.h.
#ifndef QELCORE_RMI_LOCALSIGNALN_H
#define QELCORE_RMI_LOCALSIGNALN_H

#include <cstddef>
#include <cstdint>

#include "qelcore/qelinline.h"
#include "qelcore/rmi/cabstractsignal.h"
#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/cconnection.h"
#include "qelcore/rmi/cdirectlocalslotcalln.h"
#include "qelcore/rmi/cfunctorslotcalln.h"
#include "qelcore/rmi/crmiexceptions.h"
#include "qelcore/rmi/ttypestring.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tsmallvector.h"

namespace qrmi {

class cPublicSlot;

template <class R, class... A>
class localSignalN : public cAbstractSignal {
public:
  /// The slot call of one connection.
  typedef cAbstractSlotCallN<R, A...> tSlotCall;
  /// Most signals have one connection: it is kept without an allocation.
  typedef qstd::tSmallVector<tSlotCall*, 1> tSlotCalls;

  localSignalN() : mpEmission(nullptr) {}
  /// A signal whose unconnected emissions do what `behavior` says (see
  /// setInvocationBehavior()).
  explicit localSignalN(InvocationBehavior behavior) : cAbstractSignal(behavior), mpEmission(nullptr) {}
  ~localSignalN() override {
    if (mpEmission) abandonEmissions();
    if (mvSlots.size() == 1) {
      // The common case: one connection, kept inside the vector. It leaves
      // the list first, so that a slot call whose destruction reaches back
      // into the signal finds none.
      tSlotCall* call = mvSlots[0];
      mvSlots.clear();
      delete call;
    } else if (!mvSlots.empty()) {
      destroySlots();
    }
  }

  /// Connects `method` of `object`; returns a handle to the new connection
  /// (which the signal owns; see tConnection). The same pair may be connected
  /// more than once.
  template <class T>
  tConnection<tSlotCall> connect(T& object, R (T::*method)(A...)) {
    return take(new cDirectLocalSlotCallN<T, R, A...>(object, method, this));
  }
  /// A slot declared void, for a signal without result (R is piVoid).
  template <class T>
  tConnection<tSlotCall> connect(T& object, void (T::*method)(A...)) {
    static_assert(std::is_same<R, qsa::piVoid>::value, "a slot declared void needs a signal whose result is piVoid");
    return take(new cFunctorSlotCallN<tVoidMethod<T, A...>, R, A...>(object, tVoidMethod<T, A...>{&object, method}, this));
  }
  /// A lambda or plain function that belongs to `owner`: the connection ends
  /// with the owner, as for its member functions. Its result must convert to
  /// R, or be void (then the default R).
  template <class F, class = std::enable_if_t<std::is_invocable<std::decay_t<F>&, A...>::value>>
  tConnection<tSlotCall> connect(cConnectable& owner, F&& function) {
    typedef std::decay_t<F> tFunction;
    return take(new cFunctorSlotCallN<tFunction, R, A...>(owner, static_cast<F&&>(function), this));
  }
  /// Takes over a slot call created elsewhere (for example one that calls a
  /// public slot by name), whichever signal it was made for.
  tConnection<tSlotCall> connect(qstd::tAutoPtr<tSlotCall> slot) {
    QEL_ASSERT(slot.get() != 0, "rmi/localsignaln");
    return take(slot.release());
  }
  /// connect(tAutoPtr) for a caller that keeps no handle: the same
  /// connection, only none is made (which saves a little where connections
  /// are made at a high rate). `slot` (not null) belongs to the signal from
  /// here on, also when this throws.
  void connectWithoutHandle(tSlotCall* slot) { store(slot); }
  /// Removes and destroys one connection of this signal; false when `call`
  /// is none of them.
  bool disconnect(const tSlotCall& call) {
    for (std::size_t i = 0; i < mvSlots.size(); ++i)
      if (mvSlots[i] == &call) {
        tSlotCall* doomed = mvSlots[i];
        mvSlots.erase(mvSlots.begin() + static_cast<std::ptrdiff_t>(i));
        delete doomed;
        return true;
      }
    return false;
  }

  /// Removes and destroys every connection whose receiver is `object`.
  bool disconnectObject(const cConnectable& object) override { return removeSlotsOf(object); }
  /// The same as disconnectObject().
  bool disconnect(const cConnectable& object) override { return removeSlotsOf(object); }

  /// Emits the signal. With exactly one slot its result is returned; with
  /// none or several a default R (none with eMustBeConnected throws).
  R operator()(A... args) {
    cEmissionLink link;
    cEmission emission(*this, link);
    std::size_t count = mvSlots.size();
    if (count == 0) {
      if (invocationBehavior() == eMustBeConnected) cRMIExceptions::throwUnconnectedSignal();
      return R();
    }
    tSlotCall* first = mvSlots[0];
    first->mbCalled = false;
    if (count == 1) {
      first->mbCalled = true;
      R result = R();
      first->invoke(result, args...);
      return result;
    }
    for (std::size_t i = 1; i < count; ++i) mvSlots[i]->mbCalled = false;
    // Flags instead of indices: slots that connect or disconnect others
    // during the emission neither skip a slot nor call one twice.
    R scratch = R();
    std::size_t i = 0;
    while (i < mvSlots.size()) {
      tSlotCall* call = mvSlots[i];
      if (call->mbCalled) {
        ++i;
        continue;
      }
      call->mbCalled = true;
      call->invoke(scratch, args...);
      if (link.destroyed()) return R();
    }
    return R();
  }

  /// Publishes `method` of `object` under `name`, with type strings computed
  /// from R and A...; the slot can then be called by name with a reference
  /// frame or with archived arguments. Returns the new description. Defined
  /// with the slot calls it creates, in cindirectresolvingslotcalln.h (which
  /// registerPublicSlot() comes with).
  template <class T>
  static cPublicSlot& registerSlot(T& object, R (T::*method)(A...), const qstd::cAsciiString& name,
                                   const qstd::cAsciiString& description = qstd::cAsciiString());

  /// The number of connections.
  unsigned int slotCount() const { return static_cast<unsigned int>(mvSlots.size()); }
  /// The slot calls, one per connection, in the order they were connected.
  const tSlotCalls& slotCalls() const { return mvSlots; }
  /// Emissions of this signal running now (nested ones count each).
  unsigned int emissionDepth() const {
    unsigned int depth = 0;
    for (const cEmissionLink* e = mpEmission; e; e = e->outer()) ++depth;
    return depth;
  }

protected:
  /// The type string of A... (see tTypeString).
  qstd::cAsciiString parametersTypeString() const override { return tTypeString<A...>::list(); }
  /// The type string of R.
  qstd::cAsciiString returnTypeString() const override { return tTypeString<R>::list(); }
  /// One parameter description per A, and the result's.
  void describeValues(cPublicSignal& signal) const override {
    int expand[] = {0, (describeValue<A>(addParameter(signal)), 0)...};
    (void)expand;
    describeValue<R>(returnValue(signal));
  }

private:
  /// One running emission, on the emitter's stack: the address of the outer
  /// one and, in the low bit, whether the signal was destroyed meanwhile. The
  /// chain of them is the emission depth. A single word keeps the cost of an
  /// emission close to that of the call it makes.
  struct cEmissionLink {
    enum : std::uintptr_t { Destroyed = 1 };
    cEmissionLink* outer() const { return reinterpret_cast<cEmissionLink*>(mWord & ~std::uintptr_t(Destroyed)); }
    bool destroyed() const { return (mWord & Destroyed) != 0; }
    std::uintptr_t mWord;
  };
  /// Enters an emission and leaves it on every way out, unless the signal was
  /// destroyed meanwhile. Only the link is visible to the signal, so the
  /// compiler keeps the rest in registers.
  struct cEmission {
    cEmission(localSignalN& signal, cEmissionLink& link) : mSignal(signal), mLink(link) {
      link.mWord = reinterpret_cast<std::uintptr_t>(signal.mpEmission);
      signal.mpEmission = &link;
    }
    ~cEmission() {
      const std::uintptr_t word = mLink.mWord;
      if ((word & cEmissionLink::Destroyed) == 0) mSignal.mpEmission = reinterpret_cast<cEmissionLink*>(word);
    }
    cEmission(const cEmission&) = delete;
    cEmission& operator=(const cEmission&) = delete;
    localSignalN& mSignal;
    cEmissionLink& mLink;
  };
  /// Stores `call` (owned from here on) as the last connection.
  void store(tSlotCall* call) {
    try {
      mvSlots.reserve(mvSlots.size() + 1);
      adopt(*call);
    } catch (...) {
      delete call;
      throw;
    }
    mvSlots.push_back(call);
  }
  /// store(), and a handle to the new connection.
  tConnection<tSlotCall> take(tSlotCall* call) {
    store(call);
    return tConnection<tSlotCall>(*call, &removeSlotCall);
  }
  static bool removeSlotCall(cAbstractSignal& signal, cAbstractSlotCall& call) {
    return static_cast<localSignalN&>(signal).disconnect(static_cast<const tSlotCall&>(call));
  }
  bool removeSlotsOf(const cConnectable& object) {
    bool removed = false;
    for (tSlotCall*& call : mvSlots)
      if (object == call) {
        tSlotCall* doomed = call;
        call = nullptr;
        delete doomed;
        removed = true;
      }
    if (removed) {
      std::size_t kept = 0;
      for (tSlotCall* call : mvSlots)
        if (call) mvSlots[kept++] = call;
      mvSlots.erase(mvSlots.begin() + kept, mvSlots.end());
    }
    return removed;
  }

  /// For the destructor: emissions further up the stack must not touch this
  /// object any more. Out of line, like destroySlots(), so that the common
  /// destruction stays short.
  QEL_COLD void abandonEmissions() {
    checkNIC(emissionDepth());
    for (cEmissionLink* e = mpEmission; e;) {
      cEmissionLink* outer = e->outer();
      e->mWord |= cEmissionLink::Destroyed;
      e = outer;
    }
  }
  /// For the destructor: deletes several connections.
  QEL_COLD void destroySlots() {
    tSlotCalls calls;
    calls.swap(mvSlots);
    for (tSlotCall* call : calls) delete call;
  }

  tSlotCalls mvSlots;
  /// The innermost running emission, or null.
  cEmissionLink* mpEmission;
};

template <class R>
using localSignal0 = localSignalN<R>;
template <class R, class A1>
using localSignal1 = localSignalN<R, A1>;
template <class R, class A1, class A2>
using localSignal2 = localSignalN<R, A1, A2>;
template <class R, class A1, class A2, class A3>
using localSignal3 = localSignalN<R, A1, A2, A3>;
template <class R, class A1, class A2, class A3, class A4>
using localSignal4 = localSignalN<R, A1, A2, A3, A4>;
template <class R, class A1, class A2, class A3, class A4, class A5>
using localSignal5 = localSignalN<R, A1, A2, A3, A4, A5>;

}  // namespace qrmi

#endif
