/// \class qrmi::cConnection
/// A handle to one connection of a local signal, as connect() returns it:
/// disconnect() removes exactly that connection, whatever else the signal or
/// the receiver has.
///
/// \code
///   qrmi::cConnection c = door.sigOpened.connect(bell, &cBell::sltRing);
///   ...
///   c.disconnect();          // bell's other connections stay
/// \endcode
///
/// The handle does not own the connection: dropping it leaves the connection
/// in place (connect() results that are ignored change nothing). When the
/// connection ends first (its signal or its receiver is destroyed, or the
/// receiver detaches), the handle learns of it and connected() turns false.
/// Handles move but are not copied, so there is only ever one per connection.
#ifndef QELCORE_RMI_CCONNECTION_H
#define QELCORE_RMI_CCONNECTION_H

#include "qelcore/qelexport.h"
#include "qelcore/rmi/cabstractslotcall.h"

namespace qrmi {

class cAbstractSignal;
class cAbstractSlotCall;

class QEL_EXPORT cConnection {
public:
  /// Removes `call` from `signal` and destroys it; supplied by the signal
  /// that made the connection, which knows the slot call's type.
  typedef bool (*tRemover)(cAbstractSignal& signal, cAbstractSlotCall& call);

  /// No connection.
  cConnection() noexcept : mpCall(nullptr), mpfRemove(nullptr) {}
  /// For a slot call that `signal` has taken over; used by the signals.
  cConnection(cAbstractSlotCall& call, tRemover remove) : mpCall(&call), mpfRemove(remove) {
    // A slot call has at most one handle: a newer one takes over.
    if (call.mpHandle) call.mpHandle->mpCall = nullptr;
    call.mpHandle = this;
  }
  /// Takes the connection over; `other` is left without one.
  cConnection(cConnection&& other) noexcept;
  /// The handle held before lets go of its connection (which stays).
  cConnection& operator=(cConnection&& other) noexcept;
  cConnection(const cConnection&) = delete;
  cConnection& operator=(const cConnection&) = delete;
  ~cConnection() {
    if (mpCall) mpCall->mpHandle = nullptr;
  }

  /// Whether the connection still exists.
  bool connected() const { return mpCall != nullptr; }
  /// Removes and destroys the connection; false when it had already ended.
  /// A slot that disconnects its own connection this way must not touch its
  /// function object's state afterwards: it is destroyed with the connection.
  bool disconnect();
  /// The slot call of the connection, or null once it has ended.
  cAbstractSlotCall* slotCall() const { return mpCall; }

private:
  friend class cAbstractSlotCall;
  void release() noexcept;

  cAbstractSlotCall* mpCall;
  tRemover mpfRemove;
};

/// The handle as a signal's connect() gives it out: a cConnection that also
/// reaches the slot call of its connection with the signal's type for it.
///
/// \code
/// auto c = sig.connect(bell, &cBell::sltRing);
/// qpi::cWork* work = c->createWork(3);
/// \endcode
template <class S>
class tConnection : public cConnection {
public:
  tConnection() noexcept {}
  /// See cConnection.
  tConnection(S& call, tRemover remove) : cConnection(call, remove) {}

  /// The slot call, or null once the connection has ended.
  S* slotCall() const { return static_cast<S*>(cConnection::slotCall()); }
  /// Only while connected().
  S* operator->() const { return slotCall(); }
  /// Only while connected().
  S& operator*() const { return *slotCall(); }
};

}  // namespace qrmi

#endif
