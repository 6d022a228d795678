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
#include "qelcore/std/detail/tpointermap.h"

namespace qrmi {

using qstd::cAsciiString;

// Where a receiver's entries of each signal are: the number of its entries
// and the position of the last one. A receiver of many signals, such as a
// work queue listening to thousands of works, finds the entry of a
// connection that ends without walking its list.
class cConnectable::cSignalIndex {
public:
  struct cEntries {
    unsigned int miCount;
    unsigned int miPos;
  };
  cEntries* find(const cAbstractSignal* signal) { return mMap.find(signal); }
  void add(const cAbstractSignal* signal, unsigned int pos) {
    cEntries& entries = mMap.insert(signal);
    ++entries.miCount;
    entries.miPos = pos;
  }
  void erase(const cAbstractSignal* signal) { mMap.erase(signal); }
  // Indexes `list` anew; null entries are gaps.
  void rebuild(const tSignalList& list) {
    mMap.clear();
    for (std::size_t i = 0; i < list.size(); ++i)
      if (list[i]) add(list[i], static_cast<unsigned int>(i));
  }

private:
  qstd::detail::tPointerMap<cAbstractSignal, cEntries> mMap;
};

void cConnectable::tearDown() {
  detachAllSignals();
  deletePublicRecords();
  delete mpSlots;
  delete mpSignals;
  delete mpIndex;
  mpSlots = nullptr;
  mpSignals = nullptr;
  mpIndex = nullptr;
}

const cConnectable::tSignalList& cConnectable::attachedSignals() const {
  if (miDetached) compactAttached();
  return mAttachedSignals;
}

void cConnectable::compactAttached() const {
  // The entries that move are told their new place; the index keeps the
  // place of each signal's last entry, which the walk in order gives.
  std::size_t kept = 0;
  for (std::size_t i = 0; i < mAttachedSignals.size(); ++i)
    if (cAbstractSignal* signal = mAttachedSignals[i]) {
      if (mpIndex) mpIndex->find(signal)->miPos = static_cast<unsigned int>(kept);
      mAttachedSignals[kept++] = signal;
    }
  mAttachedSignals.erase(mAttachedSignals.begin() + kept, mAttachedSignals.end());
  miDetached = 0;
}

void cConnectable::attach(cAbstractSignal& signal) {
  mAttachedSignals.push_back(&signal);
  if (mpIndex) {
    mpIndex->add(&signal, static_cast<unsigned int>(mAttachedSignals.size() - 1));
  } else if (mAttachedSignals.size() >= kIndexFrom) {
    mpIndex = new cSignalIndex;
    mpIndex->rebuild(mAttachedSignals);
  }
}

void cConnectable::detach(cAbstractSignal& signal) {
  if (mbDetaching) return;
  if (!mpIndex) {
    // A short list: close up over the entries of `signal` in one sweep,
    // from the first of them on.
    cAbstractSignal** entries = mAttachedSignals.data();
    const std::size_t n = mAttachedSignals.size();
    std::size_t i = 0;
    while (i < n && entries[i] != &signal) ++i;
    if (i == n) return;
    std::size_t kept = i;
    for (++i; i < n; ++i)
      if (entries[i] != &signal) entries[kept++] = entries[i];
    mAttachedSignals.erase(mAttachedSignals.begin() + kept, mAttachedSignals.end());
    return;
  }
  cSignalIndex::cEntries* entry = mpIndex->find(&signal);
  if (!entry) return;
  if (entry->miCount == 1) {
    mAttachedSignals[entry->miPos] = nullptr;
  } else {
    // Several connections through one signal: all entries go at once.
    for (std::size_t i = 0; i < mAttachedSignals.size(); ++i)
      if (mAttachedSignals[i] == &signal) mAttachedSignals[i] = nullptr;
  }
  miDetached += entry->miCount;
  mpIndex->erase(&signal);
  // Closing the gaps when they are half the list keeps this O(1) amortised.
  // When every entry is gone the index is empty already: nothing to close.
  if (miDetached == mAttachedSignals.size()) {
    mAttachedSignals.clear();
    miDetached = 0;
  } else if (miDetached * 2 > mAttachedSignals.size()) {
    compactAttached();
  }
}

void cConnectable::reAssign(cAbstractSignal& oldSignal, cAbstractSignal& newSignal) {
  std::replace(mAttachedSignals.begin(), mAttachedSignals.end(), &oldSignal, &newSignal);
  if (mpIndex) mpIndex->rebuild(mAttachedSignals);
}

void cConnectable::detachAllSignals() {
  // The slot calls destroyed here report back; ignoring those reports keeps
  // the list stable while it is walked.
  mbDetaching = true;
  for (std::size_t i = 0; i < mAttachedSignals.size(); ++i)
    if (cAbstractSignal* signal = mAttachedSignals[i]) signal->disconnectObject(*this);
  mAttachedSignals.clear();
  miDetached = 0;
  delete mpIndex;
  mpIndex = nullptr;
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
