/// \class qrmi::cConnectable
/// Base of every object that receives slot calls or publishes slots and
/// signals by name.
///
/// A connectable keeps one entry per slot call that a signal holds for it, so
/// that its destruction can remove those slot calls from their signals. Its
/// public slots and signals are described by name and type strings and can be
/// called or connected without knowing their C++ signatures.
#ifndef QELCORE_RMI_CCONNECTABLE_H
#define QELCORE_RMI_CCONNECTABLE_H

#include "qelcore/qelexport.h"
#include "qelcore/rmi/cabstractsignal.h"
#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tsimplevector.h"
#include "qelcore/std/tsmallvector.h"

namespace qstd {
class cAsciiString;
}
namespace qsa {
class cAbstractDeserializer;
class cAbstractSerializer;
class cReferenceFrame;
}  // namespace qsa

namespace qrmi {

class cAbstractSlotCall;
class cAbstractRMIFactory;
class cPublicSlot;
class cPublicSignal;
template <class R, class... A>
class localSignalN;

class QEL_EXPORT cConnectable {
public:
  /// The signals attached to this object. Most objects are attached to a
  /// few signals at a time: those are kept without an allocation.
  typedef qstd::tSmallVector<cAbstractSignal*, 2> tSignalList;
  /// The public slots, in registration order.
  typedef qstd::tSimpleVector<cPublicSlot*> tPublicSlotList;
  /// The public signals, in registration order.
  typedef qstd::tSimpleVector<cPublicSignal*> tPublicSignalList;

  cConnectable()
      : mpIndex(nullptr), miDetached(0), mpSlots(nullptr), mpSignals(nullptr), mbDetaching(false), miIndex(0) {}
  cConnectable(const cConnectable&) = delete;
  cConnectable& operator=(const cConnectable&) = delete;
  /// Detaches from every signal, then deletes the public slots and signals.
  virtual ~cConnectable() {
    // Most connectables die without connections or public records.
    if (!mAttachedSignals.empty() || mpSlots || mpSignals || mpIndex) tearDown();
  }

  /// Called by a slot call created for `signal`; duplicates are kept.
  void notifySignalAttached(cAbstractSignal& signal) {
    // A short list with room: most receivers, inline.
    if (!mpIndex && mAttachedSignals.size() < mAttachedSignals.capacity() &&
        mAttachedSignals.size() + 1 < kIndexFrom)
      mAttachedSignals.push_back(&signal);
    else
      attach(signal);
  }
  /// Removes every entry of `signal` at once (ignored while detaching).
  void notifySignalDetached(cAbstractSignal& signal) {
    // The signal of the last entry, and of no other one, in a list of one or
    // two: most detachments, inline. The list is tested first, the rare
    // states after it, so that a miss costs the fewest tests.
    const std::size_t n = mAttachedSignals.size();
    cAbstractSignal* const* entries = mAttachedSignals.data();
    if (n == 1) {
      if (entries[0] == &signal && !mpIndex && !mbDetaching) {
        mAttachedSignals.clear();
        return;
      }
    } else if (n == 2) {
      if (entries[1] == &signal && entries[0] != &signal && !mpIndex && !mbDetaching) {
        mAttachedSignals.pop_back();
        return;
      }
    }
    detach(signal);
  }
  /// Asks every attached signal to drop this object's slot calls, then
  /// forgets them: an entry kept would point at a signal that may die first.
  void detachAllSignals();
  /// detachAllSignals, then deletes the public slots and signals.
  void clear();
  /// Whether `slot` calls this object.
  bool operator==(const cAbstractSlotCall* slot) const;

  /// One entry per slot call created for a signal, in attachment order.
  const tSignalList& attachedSignals() const;

  /// A number for the object's owner (an interface's index, say); 0 by default.
  void setIndex(unsigned int index) { miIndex = index; }
  /// See setIndex().
  unsigned int index() const { return miIndex; }

  ///@{
  /// Public slots. Names are compared exactly; the first match wins.
  const cAbstractSlotCall* tryFindSlot(const qstd::cAsciiString& name) const;
  const cPublicSlot& findPublicSlot(const qstd::cAsciiString& name) const;
  const cPublicSlot* tryFindPublicSlot(const cAbstractSlotCall& slot) const;
  ///@}
  /// "unknown" for a slot call that is not published here.
  qstd::cAsciiString publicSlotName(const cAbstractSlotCall& slot) const;
  /// Null when no slot was ever published.
  const tPublicSlotList* hasPublicSlots() const { return mpSlots; }

  ///@{
  /// Public signals.
  cPublicSignal& findSignal(const qstd::cAsciiString& name);
  const cPublicSignal& findPublicSignal(const qstd::cAsciiString& name) const;
  ///@}
  /// Null when no signal was ever published.
  const tPublicSignalList* hasPublicSignals() const { return mpSignals; }

  /// Calls a public slot with the arguments of `frame`, whose first entry
  /// takes the result.
  void invokeIndirectSlot(const qstd::cAsciiString& name, qsa::cReferenceFrame& frame) const;
  /// Calls a public slot with the arguments read from `in`; the result goes
  /// to `out`.
  void invokeIndirectRemoteSlot(const qstd::cAsciiString& name, qsa::cAbstractDeserializer& in,
                                qsa::cAbstractSerializer& out) const;

  ///@{
  /// Read a serialized slot or signal description of a peer and publish a
  /// local stand-in for it that `factory` creates.
  cPublicSlot& registerRemoteSlot(qsa::cAbstractDeserializer& in, cAbstractRMIFactory& factory);
  cPublicSignal& registerRemoteSignal(qsa::cAbstractDeserializer& in, cAbstractRMIFactory& factory);
  ///@}
  /// Publishes an already created slot call under `name` (without type strings).
  cPublicSlot& registerRemoteSlot(const qstd::cAsciiString& name, qstd::tAutoPtr<cAbstractSlotCall> slot);

private:
  friend class cAbstractSlotCall;
  friend class cAbstractSignal;
  template <class R, class... A>
  friend class localSignalN;

  /// Receivers with fewer entries search their list; it is faster than hashing.
  static constexpr std::size_t kIndexFrom = 16;

  void attach(cAbstractSignal& signal);
  void detach(cAbstractSignal& signal);
  void reAssign(cAbstractSignal& oldSignal, cAbstractSignal& newSignal);
  void codRSlots();
  void codRSignals();
  cPublicSlot& registerSlot(const qstd::cAsciiString& name, const qstd::cAsciiString& returnTypeName,
                            const qstd::cAsciiString& paramTypeNames, const qstd::cAsciiString& description,
                            qstd::tAutoPtr<cAbstractSlotCall> slot);
  cPublicSignal& registerSignal(const qstd::cAsciiString& name, const qstd::cAsciiString& returnTypeName,
                                const qstd::cAsciiString& paramTypeNames, cAbstractSignal::InterfaceType type,
                                const qstd::cAsciiString& description, cAbstractSignal& signal);
  const cPublicSlot* tryFindPublicSlot(const qstd::cAsciiString& name) const;
  cPublicSignal* tryFindPublicSignal(const qstd::cAsciiString& name) const;
  void deletePublicRecords();
  void tearDown();
  /// A published signal dies: its description leaves its owner's interface.
  static void signalDestroyed(cPublicSignal& record);
  class cSignalIndex;
  void compactAttached() const;

  /// With many entries, detached ones are only nulled here and the index
  /// finds a signal's entries; compactAttached() closes the gaps.
  mutable tSignalList mAttachedSignals;
  mutable cSignalIndex* mpIndex;
  mutable unsigned int miDetached;
  tPublicSlotList* mpSlots;
  tPublicSignalList* mpSignals;
  bool mbDetaching;
  unsigned int miIndex;
};

inline cAbstractSlotCall::~cAbstractSlotCall() {
  if (mpHandle) releaseHandle();
  if (mbAttached) mpObject->notifySignalDetached(*mpSignal);
}

inline void cAbstractSignal::adopt(cAbstractSlotCall& call) {
  QEL_ASSERT(!call.mbAttached, "rmi/cabstractsignal");
  call.mpObject->notifySignalAttached(*this);
  call.mpSignal = this;
  call.mbAttached = true;
}

}  // namespace qrmi

#endif
