#include "qelcore/rmi/cconnectable.h"

#include <algorithm>

#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/crmiexceptions.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qrmi {

using qstd::cAsciiString;

cConnectable::cConnectable() : mpSlots(nullptr), mpSignals(nullptr), mbDetaching(false), miIndex(0) {}

cConnectable::~cConnectable() {
  detachAllSignals();
  deletePublicRecords();
  delete mpSlots;
  delete mpSignals;
}

void cConnectable::notifySignalAttached(cAbstractSignal& signal) { mAttachedSignals.push_back(&signal); }

void cConnectable::notifySignalDetached(cAbstractSignal& signal) {
  if (mbDetaching) return;
  mAttachedSignals.erase(std::remove(mAttachedSignals.begin(), mAttachedSignals.end(), &signal),
                         mAttachedSignals.end());
}

void cConnectable::reAssign(cAbstractSignal& oldSignal, cAbstractSignal& newSignal) {
  std::replace(mAttachedSignals.begin(), mAttachedSignals.end(), &oldSignal, &newSignal);
}

void cConnectable::detachAllSignals() {
  // The slot calls destroyed here report back; ignoring those reports keeps
  // the list stable while it is walked.
  mbDetaching = true;
  for (std::size_t i = 0; i < mAttachedSignals.size(); ++i) mAttachedSignals[i]->disconnectObject(*this);
  mAttachedSignals.clear();
  mbDetaching = false;
}

void cConnectable::clear() {
  detachAllSignals();
  deletePublicRecords();
}

void cConnectable::deletePublicRecords() {
  // Taken out of the lists first: a description of a peer's signal deletes
  // the stand-in it owns, whose destruction must not find it listed.
  if (mpSlots) {
    tPublicSlotList slots;
    slots.swap(*mpSlots);
    for (cPublicSlot* slot : slots) delete slot;
  }
  if (mpSignals) {
    tPublicSignalList signals;
    signals.swap(*mpSignals);
    for (cPublicSignal* signal : signals) delete signal;
  }
}

void cConnectable::signalDestroyed(cPublicSignal& record) {
  record.mpSignal = nullptr;
  tPublicSignalList* list = record.mpOwner ? record.mpOwner->mpSignals : nullptr;
  if (!list) return;
  // Signals die in the reverse order of their export, as members do.
  for (std::size_t i = list->size(); i-- > 0;)
    if ((*list)[i] == &record) {
      list->erase(list->begin() + static_cast<std::ptrdiff_t>(i));
      delete &record;
      return;
    }
}

bool cConnectable::operator==(const cAbstractSlotCall* slot) const { return slot->matchSlotOfObject(this); }

void cConnectable::codRSlots() {
  if (!mpSlots) mpSlots = new tPublicSlotList;
}

void cConnectable::codRSignals() {
  if (!mpSignals) mpSignals = new tPublicSignalList;
}

cPublicSlot& cConnectable::registerSlot(const cAsciiString& name, const cAsciiString& returnTypeName,
                                        const cAsciiString& paramTypeNames, const cAsciiString& description,
                                        qstd::tAutoPtr<cAbstractSlotCall> slot) {
  QEL_ASSERT(slot.get() != 0, "rmi/cconnectable");
  codRSlots();
  mpSlots->reserve(mpSlots->size() + 1);
  cPublicSlot* record = new cPublicSlot(name, returnTypeName, paramTypeNames, description, slot);
  mpSlots->push_back(record);
  return *record;
}

cPublicSignal& cConnectable::registerSignal(const cAsciiString& name, const cAsciiString& returnTypeName,
                                            const cAsciiString& paramTypeNames, cAbstractSignal::InterfaceType type,
                                            const cAsciiString& description, cAbstractSignal& signal) {
  if (signal.isPublicSignal()) cRMIExceptions::throwSignalAlreadyPublic();
  codRSignals();
  mpSignals->reserve(mpSignals->size() + 1);
  cPublicSignal* record = new cPublicSignal(name, returnTypeName, paramTypeNames, description, type, signal);
  record->mpOwner = this;
  mpSignals->push_back(record);
  signal.setPublicSignal(record);
  return *record;
}

const cPublicSlot* cConnectable::tryFindPublicSlot(const cAsciiString& name) const {
  if (mpSlots)
    for (const cPublicSlot* slot : *mpSlots)
      if (slot->matchName(name)) return slot;
  return nullptr;
}

cPublicSignal* cConnectable::tryFindPublicSignal(const cAsciiString& name) const {
  if (mpSignals)
    for (cPublicSignal* signal : *mpSignals)
      if (signal->matchName(name)) return signal;
  return nullptr;
}

const cAbstractSlotCall* cConnectable::tryFindSlot(const cAsciiString& name) const {
  const cPublicSlot* slot = tryFindPublicSlot(name);
  return slot ? slot->slot() : nullptr;
}

const cPublicSlot& cConnectable::findPublicSlot(const cAsciiString& name) const {
  const cPublicSlot* slot = tryFindPublicSlot(name);
  if (!slot) cRMIExceptions::throwNoSuchSlot(name, cAsciiString("(?)"));
  return *slot;
}

const cPublicSlot* cConnectable::tryFindPublicSlot(const cAbstractSlotCall& call) const {
  if (mpSlots)
    for (const cPublicSlot* slot : *mpSlots)
      if (slot->slot() == &call) return slot;
  return nullptr;
}

cAsciiString cConnectable::publicSlotName(const cAbstractSlotCall& call) const {
  const cPublicSlot* slot = tryFindPublicSlot(call);
  return slot ? slot->name() : cAsciiString("unknown");
}

cPublicSignal& cConnectable::findSignal(const cAsciiString& name) {
  cPublicSignal* signal = tryFindPublicSignal(name);
  if (!signal) cRMIExceptions::throwNoSuchSignal(name);
  return *signal;
}

const cPublicSignal& cConnectable::findPublicSignal(const cAsciiString& name) const {
  const cPublicSignal* signal = tryFindPublicSignal(name);
  if (!signal) cRMIExceptions::throwNoSuchSignal(name);
  return *signal;
}

void cConnectable::invokeIndirectSlot(const cAsciiString& name, qsa::cReferenceFrame& frame) const {
  const cAbstractSlotCall* slot = tryFindSlot(name);
  if (!slot) cRMIExceptions::throwNoSuchSlot(name, frame);
  slot->call(frame);
}

void cConnectable::invokeIndirectRemoteSlot(const cAsciiString& name, qsa::cAbstractDeserializer& in,
                                            qsa::cAbstractSerializer& out) const {
  const cAbstractSlotCall* slot = tryFindSlot(name);
  if (!slot) cRMIExceptions::throwNoSuchSlot(name, cAsciiString("(?)"));
  slot->call(in, out);
}

cPublicSlot& cConnectable::registerRemoteSlot(qsa::cAbstractDeserializer& in, cAbstractRMIFactory& factory) {
  // A factory that fails leaves the description unread, as a torn one does.
  qsa::cPositionGuard guard(in);
  qstd::tAutoPtr<cPublicSlot> record(new cPublicSlot(in));
  qstd::tAutoPtr<cAbstractSlotCall> call = factory.createSlotCall(*this, *record);
  QEL_ASSERT(call.get() != 0, "rmi/cconnectable");
  record->setSlot(call);
  codRSlots();
  mpSlots->push_back(record.get());
  guard.commit();
  return *record.release();
}

cPublicSignal& cConnectable::registerRemoteSignal(qsa::cAbstractDeserializer& in, cAbstractRMIFactory& factory) {
  qsa::cPositionGuard guard(in);
  qstd::tAutoPtr<cPublicSignal> record(new cPublicSignal(in));
  record->mpOwner = this;
  qstd::tAutoPtr<cAbstractSignal> signal = factory.createSignal(*this, *record);
  QEL_ASSERT(signal.get() != 0, "rmi/cconnectable");
  record->adoptSignal(signal);
  record->signal().setPublicSignal(record.get());
  codRSignals();
  mpSignals->push_back(record.get());
  guard.commit();
  return *record.release();
}

cPublicSlot& cConnectable::registerRemoteSlot(const cAsciiString& name, qstd::tAutoPtr<cAbstractSlotCall> slot) {
  return registerSlot(name, cAsciiString(), cAsciiString(), cAsciiString(), slot);
}

}  // namespace qrmi
