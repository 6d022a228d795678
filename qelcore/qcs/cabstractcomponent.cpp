#include "qelcore/qcs/cabstractcomponent.h"

#include "qelcore/pi/cabstractout.h"
#include "qelcore/qcs/cinterfacedep.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/qcs/detail/cmodulemgrimpl.h"
#include "qelcore/std/cstdexceptions.h"

namespace qcs {

cAbstractComponent::cAbstractComponent(cModuleMgr& mgr) : mpModuleMgr(&mgr) { enroll(); }

cAbstractComponent::cAbstractComponent(cModuleMgr& mgr, qsa::cReferenceFrame& frame)
    : cAbstractModule(frame), mpModuleMgr(&mgr) {
  enroll();
}

void cAbstractComponent::enroll() {
  qstd::tAutoPtr<detail::cComponentData> data(new detail::cComponentData);
  mpData = data.get();
  mpModuleMgr->impl().memberConstructed(*this);
  data.release();
}

cAbstractComponent::~cAbstractComponent() {
  if (mpModuleMgr) mpModuleMgr->impl().memberDestroyed(*this);
  // Dependencies that outlive their owner forget it.
  for (cInterfaceDep* dep : mpData->mDeps) dep->mpOwner = nullptr;
  delete mpData;
}

bool cAbstractComponent::isPlugIn() const { return false; }
bool cAbstractComponent::isComponent() const { return true; }
qstd::cAsciiString cAbstractComponent::isSpecific() { return qstd::cAsciiString(); }
bool cAbstractComponent::explicitLocal() const { return false; }
unsigned int cAbstractComponent::fixedQueueID() const { return 1; }
unsigned int cAbstractComponent::fixedModuleID() const { return 0; }
bool cAbstractComponent::isLocal() const { return true; }
void cAbstractComponent::notifyComponentRegistered() {}
void cAbstractComponent::notifyShortlyRemove() {}
bool cAbstractComponent::applicationCloseAdvisable(qpi::cAbstractQELApp&) { return true; }
const qstd::tPtrVector<cInterfaceDep>& cAbstractComponent::interfaceDeps() const { return mpData->mDeps; }
bool cAbstractComponent::delayAnnouncement() const { return false; }

cModuleMgr& cAbstractComponent::moduleMgr() const {
  QEL_ASSERT(mpModuleMgr != 0, "qcs/cabstractcomponent");
  return *mpModuleMgr;
}

cComponentLocation& cAbstractComponent::componentLocation() {
  // The location may change from now on: look-ups by location check it.
  if (mpModuleMgr) mpModuleMgr->impl().locationTouched(*this);
  return mLocation;
}

void cAbstractComponent::setComponentID(unsigned int id) {
  mAddress = cComponentAddr(fixedQueueID(), id);
  if (isLocal()) mLocation.setAddress(mAddress);
}

void cAbstractComponent::requestPass() {
  if (mpModuleMgr) mpModuleMgr->handleComponentIterationLater();
}

void cAbstractComponent::removeLater() {
  if (!mbToRemove) {
    mbToRemove = true;
    if (mpModuleMgr) mpModuleMgr->impl().markedForRemoval(*this);
  }
  requestPass();
}

void cAbstractComponent::setAnnounced() {
  mbAnnounced = true;
  if (mpModuleMgr) mpModuleMgr->impl().flagsChanged(*this);
}

void cAbstractComponent::addLocalRequiredComponent(cAbstractComponent* c) {
  if (!c) return;
  mpData->mRequired.append(c);
  if (mpModuleMgr) mpModuleMgr->impl().requiredAdded(*this, *c);
  modifyComponentDep();
}

const cAbstractComponent::tComponentList& cAbstractComponent::localRequiredComponents() const {
  return mpData->mRequired;
}

bool cAbstractComponent::requiresComponent(const cAbstractComponent* c) const {
  return mpData->mRequired.contains(const_cast<cAbstractComponent*>(c));
}

void cAbstractComponent::setFlag(bool& flag, bool on) {
  flag = on;
  if (mpModuleMgr) mpModuleMgr->impl().flagsChanged(*this);
  if (on) requestPass();
}

void cAbstractComponent::modifyComponentDep() { setFlag(mbComponentDepModified, true); }
void cAbstractComponent::modifyInterfaceDep() { setFlag(mbInterfaceDepModified, true); }
void cAbstractComponent::resetComponentDepModification() { setFlag(mbComponentDepModified, false); }
void cAbstractComponent::resetInterfaceDepModification() { setFlag(mbInterfaceDepModified, false); }

void cAbstractComponent::addInterfaceDep(cInterfaceDep* dep) {
  mpData->mDeps.append(dep);
  QEL_TRACE("cAbstractComponent::addInterfaceDep...");
  modifyInterfaceDep();
}

void cAbstractComponent::removeInterfaceDep(cInterfaceDep* dep) {
  bool found = false;
  const unsigned int index = mpData->mDeps.find(dep, found);
  if (found) mpData->mDeps.erase(index);
  modifyInterfaceDep();
}

void cAbstractComponent::recalcInterfaceDeps() {
  // Dependencies may come and go while others recalculate.
  for (unsigned int i = 0; i < mpData->mDeps.size(); ++i) {
    QEL_TRACE("cAbstractComponent::Recalcing deps...");
    mpData->mDeps[i]->recalc();
  }
}

void cAbstractComponent::registerRemoteException(qstd::tAutoPtr<qstd::cAbstractException> prototype) {
  QEL_ASSERT(prototype.get() != 0, "qcs/cabstractcomponent");
  mpData->mPrototypes.append(prototype);
}

qstd::tAutoPtr<qstd::cAbstractException> cAbstractComponent::tryCreateRegisteredException(
    const qstd::cAsciiString& typeName, qsa::cAbstractDeserializer& d) {
  for (const qstd::cAbstractException* prototype : mpData->mPrototypes) {
    if (prototype->typeName() == typeName) {
      qstd::tAutoPtr<qstd::cAbstractException> e(prototype->createObject());
      e->load(d);
      return e;
    }
  }
  return qstd::tAutoPtr<qstd::cAbstractException>();
}

}  // namespace qcs
