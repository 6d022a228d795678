#include "qelcore/qcs/cabstractinterfaceprovider.h"

#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/cregisteredinterface.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tptrlist.h"

#pragma push_macro("interface")
#undef interface

namespace qcs {

cAbstractInterfaceProvider::cWatch::~cWatch() {}

cAbstractInterfaceProvider::cAbstractInterfaceProvider() : mpWatch(nullptr) {}

cAbstractInterfaceProvider::~cAbstractInterfaceProvider() {
  mpWatch = nullptr;
  mInterfaces.clear();
}

const cAbstractInterface& cAbstractInterfaceProvider::interface(unsigned int idx) const {
  return *mInterfaces.at(idx)->registeredInterface();
}

cAbstractInterface& cAbstractInterfaceProvider::getInterface(unsigned int idx) {
  if (idx >= mInterfaces.size())
    qstd::cSTDExceptions::throwOutOfRange("cAbstractInterfaceProvider", "getInterface", qstd::OutOfRangeIndex, idx, 0,
                                          static_cast<long long>(mInterfaces.size()) - 1);
  return *mInterfaces[idx]->registeredInterface();
}

const cAbstractInterface* cAbstractInterfaceProvider::tryFindInterface(const qstd::cAsciiString& name) const {
  for (const cRegisteredInterface* entry : mInterfaces)
    if (entry->registeredInterface()->desc().name() == name) return entry->registeredInterface();
  return nullptr;
}

cAbstractInterface* cAbstractInterfaceProvider::tryFindInterface(const qstd::cAsciiString& name) {
  return const_cast<cAbstractInterface*>(static_cast<const cAbstractInterfaceProvider*>(this)->tryFindInterface(name));
}

const cAbstractInterface& cAbstractInterfaceProvider::findInterface(const qstd::cAsciiString& name) const {
  const cAbstractInterface* found = tryFindInterface(name);
  if (!found) cQCSExceptions::throwNoSuchInterface(name, nullptr);
  return *found;
}

cAbstractInterface& cAbstractInterfaceProvider::findInterface(const qstd::cAsciiString& name) {
  return const_cast<cAbstractInterface&>(static_cast<const cAbstractInterfaceProvider*>(this)->findInterface(name));
}

const cAbstractInterface& cAbstractInterfaceProvider::findInterface(const qrmi::cConnectable& object) const {
  const cAbstractInterface* found = hasInterface(object);
  if (!found) cQCSExceptions::throwNoPublicInterface(object);
  return *found;
}

const cAbstractInterface* cAbstractInterfaceProvider::hasInterface(const qrmi::cConnectable& object) const {
  for (const cRegisteredInterface* entry : mInterfaces)
    if (static_cast<const qrmi::cConnectable*>(entry->registeredInterface()) == &object)
      return entry->registeredInterface();
  return nullptr;
}

const cAbstractInterface* cAbstractInterfaceProvider::hasMatchingInterface(const cInterfaceDesc& desc) const {
  for (const cRegisteredInterface* entry : mInterfaces)
    if (entry->registeredInterface()->matches(desc)) return entry->registeredInterface();
  return nullptr;
}

cAbstractInterface* cAbstractInterfaceProvider::hasMatchingInterface(const cInterfaceDesc& desc) {
  return const_cast<cAbstractInterface*>(
      static_cast<const cAbstractInterfaceProvider*>(this)->hasMatchingInterface(desc));
}

const cAbstractInterface& cAbstractInterfaceProvider::getMatchingInterface(const cInterfaceDesc& desc) const {
  const cAbstractInterface* found = hasMatchingInterface(desc);
  if (!found) cQCSExceptions::throwNoSuchInterface(desc.name(), nullptr);
  return *found;
}

qstd::tAutoPtr<qstd::tPtrList<cAbstractInterface>> cAbstractInterfaceProvider::interfaces() const {
  qstd::tAutoPtr<qstd::tPtrList<cAbstractInterface>> list(new qstd::tPtrList<cAbstractInterface>(false));
  for (const cRegisteredInterface* entry : mInterfaces) list->append(entry->registeredInterface());
  return list;
}

cAbstractInterface& cAbstractInterfaceProvider::addInterface(cAbstractInterface& iface) {
  return append(new cRegisteredInterface(iface));
}

cAbstractInterface& cAbstractInterfaceProvider::addInterface(qstd::tAutoPtr<cAbstractInterface> iface) {
  QEL_ASSERT(iface.get() != 0, "qcs/cabstractinterfaceprovider");
  return append(new cRegisteredInterface(iface));
}

cAbstractInterface& cAbstractInterfaceProvider::append(cRegisteredInterface* entry) {
  // The vector owns the entry from here on, also when appending fails.
  mInterfaces.append(entry);
  entry->mpProvider = this;
  entry->link();
  notifyWatch();
  return *entry->registeredInterface();
}

void cAbstractInterfaceProvider::removeInterface(cAbstractInterface& iface) {
  // Taken out first and deleted afterwards: deleting an owned interface lets
  // it leave other lists, possibly this one again.
  qstd::tPtrVector<cRegisteredInterface> removed;
  for (unsigned int i = mInterfaces.size(); i-- > 0;)
    if (mInterfaces[i]->registeredInterface() == &iface) removed.append(mInterfaces.take(i));
  if (removed.empty()) return;
  removed.clear();
  notifyWatch();
}

void cAbstractInterfaceProvider::forget(cAbstractInterface& iface) {
  for (unsigned int i = mInterfaces.size(); i-- > 0;) {
    cRegisteredInterface* entry = mInterfaces[i];
    if (entry->registeredInterface() == &iface) {
      entry->mbOwned = false;
      mInterfaces.erase(i);
    }
  }
  // Reached from a destructor: nothing may escape.
  try {
    notifyWatch();
  } catch (...) {
  }
}

void cAbstractInterfaceProvider::notifyWatch() {
  if (mpWatch) mpWatch->interfacesChanged(*this);
}

}  // namespace qcs

#pragma pop_macro("interface")
