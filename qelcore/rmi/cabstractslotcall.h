/// \class qrmi::cAbstractSlotCall
/// The untyped part of a connection: which object receives the call, which
/// signal owns the connection, and under which public name (if any) the slot
/// is published. The typed part lives in cAbstractSlotCallN.
#ifndef QELCORE_RMI_CABSTRACTSLOTCALL_H
#define QELCORE_RMI_CABSTRACTSLOTCALL_H

#include "qelcore/qelexport.h"
#include "qelcore/std/csmallobject.h"

namespace qstd {
class cAsciiString;
}
namespace qsa {
class cAbstractDeserializer;
class cAbstractSerializer;
class cReferenceFrame;
}  // namespace qsa

namespace qrmi {

class cConnectable;
class cConnection;
class cAbstractSignal;
class cPublicSlot;
// Every connection and every scheduled call makes one: slot calls are small
// objects.
class QEL_EXPORT cAbstractSlotCall : public qstd::cSmallObject {
public:
  /// Remembers the receiver and the signal the slot call is made for. The
  /// receiver learns of the connection when a signal takes the slot call over
  /// (connect), so that it can detach on destruction; a slot call dropped
  /// before that leaves no trace in the receiver's bookkeeping.
  cAbstractSlotCall(cConnectable& object, cAbstractSignal* signal)
      : mpObject(&object), mpSignal(signal), mpPublicSlot(nullptr), mbAttached(false), mpHandle(nullptr) {}
  /// Copies the fields and tells nobody: the copy is not (yet) attached.
  cAbstractSlotCall(const cAbstractSlotCall& other)
      : mpObject(other.mpObject),
        mpSignal(other.mpSignal),
        mpPublicSlot(other.mpPublicSlot),
        mbAttached(false),
        mpHandle(nullptr) {}
  cAbstractSlotCall& operator=(const cAbstractSlotCall&) = delete;
  /// Tells the handle, if any, and takes the receiver's entry away. Inline,
  /// since every connection that ends and every scheduled call that has run
  /// comes through here; defined with cConnectable, whose bookkeeping it needs.
  inline virtual ~cAbstractSlotCall();

  /// True when `object` is the receiver (pointer comparison).
  virtual bool matchSlotOfObject(const cConnectable* object) const;
  /// Calls the slot with arguments read from `in` and writes the result (and
  /// the alterable arguments) to `out`. Here: writes "DummyCall (2)".
  virtual void call(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out) const;
  /// Calls the slot with the arguments of `frame`, whose first entry takes the
  /// result. Here: writes "DummyCall (1)".
  virtual void call(qsa::cReferenceFrame& frame) const;

  /// Renames the receiver's entries for this slot call's signal to `signal`
  /// (all of them). The own signal field is left alone. Nothing happens
  /// before a signal took the slot call over; connect() itself never needs
  /// it, since taking a slot call over gives the receiver its entry.
  void reAssign(cAbstractSignal* signal);

  /// The receiver: the object whose slot is called.
  cConnectable& assignedObject() const { return *mpObject; }
  /// The signal that owns this slot call, or null for one serving a public slot.
  cAbstractSignal* signal() const { return mpSignal; }
  /// Records the public slot this call serves.
  void setPublicSlot(const cPublicSlot* slot) { mpPublicSlot = slot; }
  /// That public slot, or null.
  const cPublicSlot* isPublicSlot() const { return mpPublicSlot; }
  /// The public name; a bug exception for a slot call that is not published.
  const qstd::cAsciiString& publicSlotName() const;

private:
  friend class cAbstractSignal;
  friend class cConnection;

  /// The handle lets go of this slot call.
  void releaseHandle();

  cConnectable* mpObject;
  cAbstractSignal* mpSignal;
  const cPublicSlot* mpPublicSlot;
  /// The receiver holds an entry for mpSignal on behalf of this slot call:
  /// set when the signal took the slot call over.
  bool mbAttached;
  /// The handle that connect() gave out for this slot call, if it still
  /// exists; told when the slot call is destroyed.
  cConnection* mpHandle;
};

}  // namespace qrmi

// The destructor's definition needs the receiver's class; cconnectable.h
// includes this header first, so either order of inclusion gives both.
#include "qelcore/rmi/cconnectable.h"

#endif
