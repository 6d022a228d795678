/// \class qrmi::remoteSignalN
/// A local signal that can also be connected by slot name, with its
/// arguments passed through an archive: the kind of signal an interface
/// exports when peers in other processes may listen to it (a remote
/// component server connects its forwarders with connectIndirect()).
/// Direct connections, emission and disconnection are those of localSignalN;
/// every connection made by name writes the arguments to an archive at each
/// emission, so the argument types must be archivable.
///
/// \code
///   class cThermometerApi : public qcs::cAbstractInterface {
///   public:
///     cThermometerApi() : cAbstractInterface(qcs::cInterfaceDesc(...)) {
///       sigChanged.exportSignal(*this, "changed", qrmi::cAbstractSignal::eProvidedInterface, "degrees");
///     }
///     qrmi::remoteSignal1<qsa::piVoid, double> sigChanged;
///   };
///
///   api.sigChanged.connectIndirect(display, "show");  // a public slot of display
///   api.sigChanged(21.5);  // local slots and remote listeners receive it
/// \endcode
#ifndef QELCORE_RMI_REMOTESIGNALN_H
#define QELCORE_RMI_REMOTESIGNALN_H

#include "qelcore/rmi/cindirectlazyslotcalln.h"
#include "qelcore/rmi/localsignaln.h"

namespace qrmi {

template <class R, class... A>
class remoteSignalN : public localSignalN<R, A...> {
public:
  /// The slot call of one connection, direct or by name.
  typedef typename localSignalN<R, A...>::tSlotCall tSlotCall;

  /// Connects the public slot `slotName` of `object`, which is looked up at
  /// each emission (an emission that does not find it fails with
  /// cNoSuchSlotException, as any indirect call does).
  void connectIndirect(cConnectable& object, const qstd::cAsciiString& slotName) override {
    this->connect(qstd::tAutoPtr<tSlotCall>(new cIndirectLazySlotCallN<R, A...>(object, slotName, this)));
  }
};

template <class R>
using remoteSignal0 = remoteSignalN<R>;
template <class R, class A1>
using remoteSignal1 = remoteSignalN<R, A1>;
template <class R, class A1, class A2>
using remoteSignal2 = remoteSignalN<R, A1, A2>;
template <class R, class A1, class A2, class A3>
using remoteSignal3 = remoteSignalN<R, A1, A2, A3>;
template <class R, class A1, class A2, class A3, class A4>
using remoteSignal4 = remoteSignalN<R, A1, A2, A3, A4>;
template <class R, class A1, class A2, class A3, class A4, class A5>
using remoteSignal5 = remoteSignalN<R, A1, A2, A3, A4, A5>;

}  // namespace qrmi

#endif
