#include "qelcore/qcs/cabstractinterface.h"

#include <utility>
#include <vector>

#include "qelcore/qcs/cabstractinterfaceprovider.h"
#include "qelcore/qcs/cregisteredinterface.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/ccontext.h"

namespace qcs {

class cAbstractInterface::cBindings {
public:
  std::vector<std::pair<qrmi::cAbstractSignal*, qrmi::cConnectable*>> mvBound;
};

cAbstractInterface::cAbstractInterface(const cInterfaceDesc& desc)
    : mDesc(desc), mpCallQueue(nullptr), mpRegistrations(nullptr), mpBindings(nullptr) {
  sigInterface.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
}

cAbstractInterface::~cAbstractInterface() {
  // Every provider that still lists this interface drops its entries; each
  // entry unlinks itself from mpRegistrations as it goes.
  while (cRegisteredInterface* entry = mpRegistrations) {
    if (entry->mpProvider) entry->mpProvider->forget(*this);
    if (mpRegistrations == entry) {
      // Its provider no longer lists it (the entry is being cleared away):
      // just let go of each other.
      entry->unlink();
      entry->mpInterface = nullptr;
      entry->mbOwned = false;
    }
  }
  // The bound signals are members of the derived class and already gone;
  // their connections went with them.
  delete mpBindings;
}

bool cAbstractInterface::matches(const cInterfaceDesc& wanted) const {
  return wanted.type() != mDesc.type() && wanted.name() == mDesc.name();
}

void cAbstractInterface::store(qsa::cAbstractSerializer& s) const {
  mDesc >> s;
  {
    qsa::cContext slots(s.newContext(nullptr));
    if (const tPublicSlotList* list = hasPublicSlots())
      for (const qrmi::cPublicSlot* slot : *list) *slot >> s;
    slots.release();
  }
  qsa::cContext signals(s.newContext(nullptr));
  if (const tPublicSignalList* list = hasPublicSignals())
    for (const qrmi::cPublicSignal* signal : *list) *signal >> s;
  signals.release();
}

void cAbstractInterface::load(qsa::cAbstractDeserializer& d, qrmi::cAbstractRMIFactory& factory) {
  clear();
  cInterfaceDesc desc;
  try {
    desc << d;
    {
      qsa::cContext slots(d.getContext(nullptr));
      while (!d.eoc()) registerRemoteSlot(d, factory);
      slots.release();
    }
    qsa::cContext signals(d.getContext(nullptr));
    while (!d.eoc()) registerRemoteSignal(d, factory);
    signals.release();
  } catch (...) {
    clear();
    throw;
  }
  const bool renamed = desc.name() != mDesc.name();
  mDesc.swap(desc);
  if (renamed) notifyProviders();
}

void cAbstractInterface::unbindSlots() {
  if (!mpBindings) return;
  std::vector<std::pair<qrmi::cAbstractSignal*, qrmi::cConnectable*>> bound;
  bound.swap(mpBindings->mvBound);
  for (const auto& b : bound) b.first->disconnect(*b.second);
}

void cAbstractInterface::rememberBinding(qrmi::cAbstractSignal& signal, cAbstractInterface& provided) {
  if (!mpBindings) mpBindings = new cBindings;
  mpBindings->mvBound.emplace_back(&signal, &provided);
}

void cAbstractInterface::notifyProviders() {
  for (cRegisteredInterface* entry = mpRegistrations; entry; entry = entry->mpNextOfInterface)
    if (entry->mpProvider) entry->mpProvider->notifyWatch();
}

}  // namespace qcs
