// The untyped part of a connection: which object receives the call, which
// signal owns the connection, and under which public name (if any) the slot
// is published. The typed part lives in cAbstractSlotCallN.
#ifndef QELCORE_RMI_CABSTRACTSLOTCALL_H
#define QELCORE_RMI_CABSTRACTSLOTCALL_H

#include "qelcore/qelexport.h"

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
class cAbstractSignal;
class cPublicSlot;
template <class R, class... A>
class localSignalN;

class QEL_EXPORT cAbstractSlotCall {
public:
  // Remembers the receiver; a slot call created for a signal registers that
  // signal with the receiver so that the receiver can detach on destruction.
  cAbstractSlotCall(cConnectable& object, cAbstractSignal* signal);
  // Copies the fields and tells nobody: the copy is not (yet) attached.
  cAbstractSlotCall(const cAbstractSlotCall& other);
  cAbstractSlotCall& operator=(const cAbstractSlotCall&) = delete;
  virtual ~cAbstractSlotCall();

  // True when `object` is the receiver (pointer comparison).
  virtual bool matchSlotOfObject(const cConnectable* object) const;
  // Calls the slot with arguments read from `in` and writes the result (and
  // the alterable arguments) to `out`. Here: writes "DummyCall (2)".
  virtual void call(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out) const;
  // Calls the slot with the arguments of `frame`, whose first entry takes the
  // result. Here: writes "DummyCall (1)".
  virtual void call(qsa::cReferenceFrame& frame) const;

  // Moves this connection's entry in the receiver's list of attached
  // signals over to `signal`. The own signal field is left alone: the signal
  // that takes the slot call over sets it.
  void reAssign(cAbstractSignal* signal);

  cConnectable& assignedObject() const { return *mpObject; }
  // The signal that owns this slot call, or null for one serving a public slot.
  cAbstractSignal* signal() const { return mpSignal; }
  void setPublicSlot(const cPublicSlot* slot) { mpPublicSlot = slot; }
  const cPublicSlot* isPublicSlot() const { return mpPublicSlot; }
  // The public name; a bug exception for a slot call that is not published.
  const qstd::cAsciiString& publicSlotName() const;

private:
  template <class R, class... A>
  friend class localSignalN;
  // Used by a signal that takes over a slot call created without one.
  void setSignal(cAbstractSignal* signal) { mpSignal = signal; }

  cConnectable* mpObject;
  cAbstractSignal* mpSignal;
  const cPublicSlot* mpPublicSlot;
};

}  // namespace qrmi

#endif
