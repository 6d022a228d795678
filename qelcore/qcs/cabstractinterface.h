/// \class qcs::cAbstractInterface
/// An interface: a named group of public slots and public signals that a
/// component offers (the provided side) or through which it uses another
/// component (the requiring side, the local interface of a cInterfaceDep).
///
/// A provider publishes slots on its interface and registers it with the
/// component (addInterface). A consumer's local interface declares typed
/// signals and, when a dependency matches it to a provided interface, binds
/// them to the provided public slots by name:
///
/// \code
///   class cClockApi : public qcs::cAbstractInterface {   // provided side
///   public:
///     cClockApi() : cAbstractInterface(qcs::cInterfaceDesc(
///                       qcs::cInterfaceDesc::eProvidedInterface, "Clock", "me", 1, "wall time")) {
///       qrmi::registerPublicSlot(*this, &cClockApi::sltNow, "now");
///     }
///     unsigned int sltNow() { return 42; }
///     void connectInterface(cAbstractInterface&) override {}
///     void disconnectInterface() override {}
///   };
///   class cClockUse : public qcs::cAbstractInterface {   // requiring side
///   public:
///     cClockUse() : cAbstractInterface(qcs::cInterfaceDesc(
///                       qcs::cInterfaceDesc::eRequiredInterface, "Clock", "me", 1, "")) {}
///     qrmi::localSignal0<unsigned int> now;
///     void connectInterface(cAbstractInterface& clock) override { bindSlot(now, clock, "now"); }
///     void disconnectInterface() override { unbindSlots(); }
///   };
/// \endcode
///
/// A provider whose slots must run on its own work queue (for example one
/// that another thread drives) says so with setCallQueue(): calls through
/// local interfaces bound from then on are posted to that queue as works.
///
/// An interface may be registered with several providers; when it is
/// destroyed it leaves all of them.
#ifndef QELCORE_QCS_CABSTRACTINTERFACE_H
#define QELCORE_QCS_CABSTRACTINTERFACE_H

#include "qelcore/qcs/cforwardingslotcalln.h"
#include "qelcore/qcs/cinterfacedesc.h"
#include "qelcore/qcs/cqueuedslotcalln.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/cindirectlazyslotcalln.h"
// Interfaces publish their slots with qrmi::registerPublicSlot.
#include "qelcore/rmi/cindirectresolvingslotcalln.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/cstdexceptions.h"

namespace qrmi {
class cAbstractRMIFactory;
}

namespace qcs {

class cRegisteredInterface;

class QEL_EXPORT cAbstractInterface : public qrmi::cConnectable {
public:
  /// An interface without slots and signals yet, described by `desc`.
  explicit cAbstractInterface(const cInterfaceDesc& desc);
  /// Leaves every provider it is registered with.
  ~cAbstractInterface() override;

  /// Called on a dependency's local interface when `provided` has been matched
  /// to it: tie this interface's signals and slots to the provided one.
  virtual void connectInterface(cAbstractInterface& provided) = 0;
  /// Called when that match is withdrawn.
  virtual void disconnectInterface() = 0;

  /// The description: side, name, author, version, text.
  const cInterfaceDesc& desc() const { return mDesc; }
  /// True exactly when `wanted` is of the other side and has this name;
  /// version, author and description play no part.
  bool matches(const cInterfaceDesc& wanted) const;

  /// The description, then an unnamed context holding every public slot, then
  /// one holding every public signal.
  void store(qsa::cAbstractSerializer& s) const;
  /// Builds a proxy of a stored interface: clears this connectable, reads the
  /// description and registers one remote slot per stored slot and one remote
  /// signal per stored signal, created by `factory`. On failure the interface
  /// is left without public slots and signals and keeps its old description.
  void load(qsa::cAbstractDeserializer& d, qrmi::cAbstractRMIFactory& factory);

  /// The queue on which this (provided) interface's public slots are to run
  /// when a local interface calls them: bindSlot() then posts each call as a
  /// work to `queue`, from whatever thread emits, and the caller gets no
  /// result. Null (the default) calls them directly. Bindings made before
  /// keep their way; `queue` must outlive them.
  void setCallQueue(qpi::cWorkQueue* queue) { mpCallQueue = queue; }
  /// The queue set by setCallQueue(), or null.
  qpi::cWorkQueue* callQueue() const { return mpCallQueue; }

  /// Free for the interface's own announcements; the library never emits it.
  qrmi::localSignal1<qsa::piVoid, const cAbstractInterface&> sigInterface;

protected:
  /// Connects `signal` to the public slot `slotName` of `provided`. A slot of
  /// the same C++ signature published in this process is called directly, or
  /// through a work on the provider's call queue when it has one; any other (a
  /// proxy's, or one of another signature) by name through archives.
  /// The connection ends with unbindSlots(), with `provided` or with the signal.
  /// A slot that is not published at all is looked up at each call and raises
  /// the no-such-slot exception then (or at once, when the signal's types
  /// cannot travel through archives).
  template <class R, class... A>
  void bindSlot(qrmi::localSignalN<R, A...>& signal, cAbstractInterface& provided, const qstd::cAsciiString& slotName) {
    typedef qrmi::cAbstractSlotCallN<R, A...> tSlotCall;
    const tSlotCall* typed = dynamic_cast<const tSlotCall*>(provided.tryFindSlot(slotName));
    if (typed && provided.mpCallQueue) {
      if constexpr ((std::is_copy_constructible<std::decay_t<A>>::value && ...)) {
        signal.connect(
            qstd::tAutoPtr<tSlotCall>(new cQueuedSlotCallN<R, A...>(provided, *typed, *provided.mpCallQueue)));
      } else {
        qstd::cSTDExceptions::throwUnsupportedOperation("cAbstractInterface::bindSlot(...) through a call queue");
      }
    } else if (typed) {
      signal.connect(qstd::tAutoPtr<tSlotCall>(new cForwardingSlotCallN<R, A...>(provided, *typed)));
    } else {
      if constexpr (qrmi::tIsArchivable<R>::value && (qrmi::tIsArchivable<A>::value && ...)) {
        signal.connect(qstd::tAutoPtr<tSlotCall>(new qrmi::cIndirectLazySlotCallN<R, A...>(provided, slotName)));
      } else {
        qrmi::cRMIExceptions::throwNoSuchSlot(slotName, qrmi::tTypeString<A...>::list());
      }
    }
    rememberBinding(signal, provided);
  }
  /// Ends every connection made with bindSlot.
  void unbindSlots();

private:
  friend class cRegisteredInterface;
  void rememberBinding(qrmi::cAbstractSignal& signal, cAbstractInterface& provided);
  void notifyProviders();

  cInterfaceDesc mDesc;
  qpi::cWorkQueue* mpCallQueue;
  /// The entries under which providers list this interface.
  cRegisteredInterface* mpRegistrations;
  /// Signals bound by bindSlot, with the interfaces they were bound to.
  class cBindings;
  cBindings* mpBindings;
};

}  // namespace qcs

#endif
