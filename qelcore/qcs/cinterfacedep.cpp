#include "qelcore/qcs/cinterfacedep.h"

#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/detail/cmodulemgrimpl.h"
#include "qelcore/std/cstdexceptions.h"

namespace qcs {

cInterfaceDep::cInterfaceDep(cAbstractComponent& owner, const cInterfaceDesc& desc, cAbstractInterface* localInterface,
                             selectionAlgo algorithm)
    : cInterfaceDep(&owner, owner.moduleMgr(), desc, localInterface, algorithm) {}

cInterfaceDep::cInterfaceDep(cModuleMgr& mgr, const cInterfaceDesc& desc, cAbstractInterface* localInterface,
                             selectionAlgo algorithm)
    : cInterfaceDep(nullptr, mgr, desc, localInterface, algorithm) {}

cInterfaceDep::cInterfaceDep(cAbstractComponent* owner, cModuleMgr& mgr, const cInterfaceDesc& desc,
                             cAbstractInterface* localInterface, selectionAlgo algorithm)
    : mpOwner(owner),
      mpModuleMgr(&mgr),
      mDesc(desc),
      meAlgorithm(algorithm),
      miState(0),
      mpLocalInterface(localInterface),
      mpEntry(nullptr) {
  sigMatched.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigUnmatched.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  mgr.impl().dependencyConstructed(*this);
  if (!owner) return;
  try {
    owner->addInterfaceDep(this);  // last: it schedules the owner's recalculation
  } catch (...) {
    mgr.impl().dependencyDestroyed(*this);
    throw;
  }
}

cInterfaceDep::~cInterfaceDep() {
  try {
    if (mpOwner) mpOwner->removeInterfaceDep(this);
  } catch (...) {
    // Nothing may escape a destructor; the owner only missed a pass request.
  }
  if (mpModuleMgr) mpModuleMgr->impl().dependencyDestroyed(*this);
}

cModuleMgrImpl& cInterfaceDep::managerImpl() const {
  QEL_ASSERT(mpModuleMgr != 0, "qcs/cinterfacedep");
  return mpModuleMgr->impl();
}

void cInterfaceDep::addPossibleLocation(const cComponentLocation& location, bool predictable) {
  if (!predictable)
    qstd::cSTDExceptions::throwUnsupportedOperation("cInterfaceDep::addPossibleLocation(useUnpredictable)");
  mPossibleLocations.append(location);
}

const cComponentAddr& cInterfaceDep::address() const { return mMatch.location().address(); }

void cInterfaceDep::stateChanged() {
  if (mpModuleMgr) mpModuleMgr->impl().dependencyChanged(*this);
}

cAbstractInterface* cInterfaceDep::hasPotentialyMatchingInterface(cAbstractComponent& c) const {
  return c.hasMatchingInterface(mDesc);
}

cAbstractInterface* cInterfaceDep::hasMatchingInterface(cAbstractComponent& c) const {
  cAbstractInterface* candidate = hasPotentialyMatchingInterface(c);
  if (!candidate) return nullptr;
  for (const cComponentLocation& excluded : mExcludedLocations)
    if (excluded == c.location()) return nullptr;
  if (mPossibleLocations.empty()) return candidate;
  // Only the host counts: address, process and local id are ignored.
  for (const cComponentLocation& possible : mPossibleLocations)
    if (possible.hostName() == c.location().hostName()) return candidate;
  return nullptr;
}

void cInterfaceDep::bindMatch(cAbstractInterface& provided, cAbstractComponent& c) {
  if (mpLocalInterface) mpLocalInterface->connectInterface(provided);
  sigMatched(c.address());
  mMatch.set(c.location());
  miState = 1;
  stateChanged();
}

void cInterfaceDep::invalidateMatch() {
  mMatch.invalidate();
  stateChanged();
  if (mpLocalInterface) mpLocalInterface->disconnectInterface();
  if (miState == 1) sigUnmatched();
  miState = 0;
  stateChanged();
}

bool cInterfaceDep::validateMatch(const cMatchedDependency& m) { return m.valid(); }

void cInterfaceDep::recalc(cAbstractComponent& c) {
  switch (meAlgorithm) {
    case saUseExplicit:
      recalcUseExcplicit(c);
      break;
    case saUseFirstBest:
      recalcUseFirstBest(c);
      break;
    case saUseInteractive:
      recalcUseInteractive(c);
      break;
    default:
      break;
  }
}

void cInterfaceDep::recalcUseFirstBest(cAbstractComponent& c) {
  if (miState == 1) {
    // The first match is kept; a later or better provider never replaces it.
    if (validateMatch(mMatch)) return;
    invalidateMatch();
  }
  if (miState != 0) return;
  if (cAbstractInterface* provided = hasMatchingInterface(c)) bindMatch(*provided, c);
}

void cInterfaceDep::recalcUseExcplicit(cAbstractComponent&) {
  if (miState == 1 && !validateMatch(mMatch)) invalidateMatch();
}

void cInterfaceDep::recalcUseInteractive(cAbstractComponent&) {
  qstd::cSTDExceptions::throwUnsupportedOperation("cInterfaceDep::saUseInteractive");
}

void cInterfaceDep::setExplicit(const cComponentLocation& location) {
  invalidateMatch();
  cAbstractComponent& c = managerImpl().mMgr.findComponent(location);
  if (cAbstractInterface* provided = hasPotentialyMatchingInterface(c)) bindMatch(*provided, c);
}

void cInterfaceDep::recalc() {
  cModuleMgrImpl& impl = managerImpl();
  cModuleMgrImpl::cWalk walk(impl);
  // In list order, only the components that can change something for this
  // dependency in its present state.
  const detail::cComponentEntry* after = nullptr;
  while (detail::cComponentEntry* e = impl.nextToRecalc(*this, after)) {
    after = e;
    recalc(*e->mpComponent);
  }
}

qsa::piVoid cInterfaceDep::sltComponentRegistered(cAbstractComponent& c) {
  recalc(c);
  return qsa::piVoid();
}

qsa::piVoid cInterfaceDep::sltComponentRemoved(cAbstractComponent& c) {
  if (mMatch.valid() && mMatch.location() == c.location()) {
    mMatch.invalidate();
    stateChanged();
    // The binding itself goes in the owner's next recalculation.
    if (mpOwner) mpOwner->modifyInterfaceDep();
  }
  return qsa::piVoid();
}

}  // namespace qcs
