/// \class qrmi::cAbstractBoundCall
/// One call of a slot, with its arguments, kept for later: what a work made by
/// a slot call's createWork() runs.
///
/// A bound call refers to its receiver through a cSlotTargetToken that the
/// slot call clears when it goes (its receiver died or it was disconnected);
/// a call whose token is cleared does nothing. The token is checked on the
/// receiver's thread, where the work runs; its creation and count are safe
/// from any thread.
#ifndef QELCORE_RMI_CABSTRACTBOUNDCALL_H
#define QELCORE_RMI_CABSTRACTBOUNDCALL_H

#include "qelcore/qelexport.h"

namespace qpi {
class cWork;
}

namespace qrmi {

/// Whether the receiver of a slot call is still there.
class QEL_EXPORT cSlotTargetToken {
public:
  /// The token in `*slot`, created there (with one reference, for the slot)
  /// on first use. Safe from several threads at once.
  static cSlotTargetToken* ensure(cSlotTargetToken** slot);
  /// Clears the token in `*slot`, if any, and drops the slot's reference.
  static void drop(cSlotTargetToken** slot);
  /// One more holder (a posted call) keeps the token.
  void addRef();
  /// Deletes the token with its last reference.
  void release();
  /// Whether the receiver still lives.
  bool alive() const { return mbAlive; }
  /// The receiver is gone; its owner says so.
  void clear() { mbAlive = false; }

protected:
  cSlotTargetToken() : mbAlive(true) {}
  ~cSlotTargetToken() {}

private:
  bool mbAlive;
};

class QEL_EXPORT cAbstractBoundCall {
public:
  cAbstractBoundCall() {}
  cAbstractBoundCall(const cAbstractBoundCall&) = delete;
  cAbstractBoundCall& operator=(const cAbstractBoundCall&) = delete;
  virtual ~cAbstractBoundCall();

  /// Makes the call with the arguments bound in.
  virtual void call() = 0;

  /// A new work (owned by the caller, started as a single task due at once)
  /// that runs `call` (which it takes over) when it is triggered.
  static qpi::cWork* createWork(cAbstractBoundCall* call);
};

}  // namespace qrmi

#endif
