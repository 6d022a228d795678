#include "qelcore/qcs/detail/cmodulemgrimpl.h"

#include <algorithm>
#include <cstring>

#include "qelcore/pi/cabstractclassloader.h"
#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/std/cstdexceptions.h"

namespace qcs {

using detail::cComponentEntry;
using detail::cDependencyEntry;
using detail::cDependencyGroup;
using detail::tDependencies;
using detail::tEntries;
using detail::tSeq;

namespace {

std::size_t mix(std::size_t h, const void* data, std::size_t n) {
  // FNV-1a: cheap, and good enough for names and host names.
  const unsigned char* p = static_cast<const unsigned char*>(data);
  for (std::size_t i = 0; i < n; ++i) h = (h ^ p[i]) * 1099511628211ull;
  return h;
}

const std::size_t kHashSeed = 14695981039346656037ull;

unsigned long long addressKey(const cComponentAddr& a) {
  return (static_cast<unsigned long long>(a.queueID()) << 32) | a.moduleID();
}

// The first entry after `cursor` in one ordered bucket of an index.
template <class Map, class Key>
typename Map::mapped_type::mapped_type firstAfter(const Map& index, const Key& key, tSeq cursor) {
  typename Map::const_iterator bucket = index.find(key);
  if (bucket == index.end()) return nullptr;
  typename Map::mapped_type::const_iterator it = bucket->second.upper_bound(cursor);
  return it == bucket->second.end() ? nullptr : it->second;
}

template <class Map, class Key, class Value>
void insertInto(Map& index, const Key& key, tSeq seq, Value* value) {
  index[key].emplace(seq, value);
}

template <class Map, class Key>
void eraseFrom(Map& index, const Key& key, tSeq seq) {
  typename Map::iterator bucket = index.find(key);
  if (bucket == index.end()) return;
  bucket->second.erase(seq);
  if (bucket->second.empty()) index.erase(bucket);
}

// The indexes of (nearly) unique keys hold one node per component.
template <class Map, class Key>
void eraseEntry(Map& index, const Key& key, const cComponentEntry* e) {
  std::pair<typename Map::iterator, typename Map::iterator> range = index.equal_range(key);
  for (typename Map::iterator it = range.first; it != range.second; ++it)
    if (it->second == e) {
      index.erase(it);
      return;
    }
}

// The first in list order under `key`, or null.
template <class Map, class Key>
cComponentEntry* firstUnder(const Map& index, const Key& key) {
  cComponentEntry* first = nullptr;
  std::pair<typename Map::const_iterator, typename Map::const_iterator> range = index.equal_range(key);
  for (typename Map::const_iterator it = range.first; it != range.second; ++it)
    if (!first || it->second->miSeq < first->miSeq) first = it->second;
  return first;
}

}  // namespace

std::size_t detail::cAsciiHash::operator()(const qstd::cAsciiString& s) const {
  return mix(kHashSeed, s.c_str(), s.size());
}

std::size_t cModuleMgrImpl::locationKey(const cComponentLocation& location) {
  const unsigned int numbers[4] = {location.address().queueID(), location.address().moduleID(), location.pid(),
                                   location.address().valid() ? 1u : 0u};
  std::size_t h = mix(kHashSeed, numbers, sizeof numbers);
  h = mix(h, location.hostName().c_str(), location.hostName().size() + 1);
  return mix(h, location.localId().c_str(), location.localId().size());
}

detail::cComponentEntry* cModuleMgrImpl::entryOf(const cAbstractComponent& c) { return c.mpData->mpEntry; }

// --- walks -------------------------------------------------------------------

cModuleMgrImpl::cWalk::cWalk(cModuleMgrImpl& impl) : mImpl(impl) { ++mImpl.miWalkDepth; }

cModuleMgrImpl::cWalk::~cWalk() {
  if (--mImpl.miWalkDepth == 0) mImpl.endWalk();
}

void cModuleMgrImpl::endWalk() {
  while (cComponentEntry* e = mpGraveyard) {
    mpGraveyard = e->mpNextGone;
    mComponents.erase(e->mPosition);
    delete e;
  }
}

// --- construction ------------------------------------------------------------

cModuleMgrImpl::cModuleMgrImpl(cModuleMgr& mgr)
    : mMgr(mgr),
      mQueue(qpi::system().workQueue()),
      mbPassAllowed(true),
      miIdCounter(1),
      mpApp(nullptr),
      miNextSeq(1),
      miToRemoveListed(0),
      miWalkDepth(0),
      mpGraveyard(nullptr),
      miNextDependencySeq(1),
      mpTailRegistered(nullptr),
      mpTailRemoved(nullptr),
      miDispatchDepth(0),
      mbDying(false) {
  mComponentWork.setName("component management (QEL Core)");
  mIdleWork.setName("idle emulation (QEL Core)");
  mComponentWork.sigTrigger.connect(*this, &cModuleMgrImpl::sltComponentManagement);
  mIdleWork.sigTrigger.connect(*this, &cModuleMgrImpl::sltIdle);
  mComponentWork.setName("ComponentManagement");
  mIdleWork.setName("ComapatIdle");
  mQueue.addJob(mComponentWork);
  mQueue.addJob(mIdleWork);
  mIdleWork.start(4000, qpi::cWork::Periodic);
}

cModuleMgrImpl::~cModuleMgrImpl() {
  mbDying = true;
  // The system's queue may have gone first (cSystem::cleanup()).
  if (qpi::cSystem::exists() && &qpi::system().workQueue() == &mQueue) {
    mQueue.removeJob(mComponentWork);
    mQueue.removeJob(mIdleWork);
  }
  ++miWalkDepth;
  // The components, in list order; owned ones are deleted.
  for (cModuleMgr::tComponents::iterator it = mComponents.begin(); it != mComponents.end(); ++it) {
    cManagedComponent* handle = *it;
    if (handle && handle->component().mpData->mpEntry) unlist(*handle->component().mpData->mpEntry, false);
  }
  --miWalkDepth;
  endWalk();
  mComponents.clear();
  // Whatever outlives the manager must not reach it any more.
  for (cAbstractComponent* c : mMembers) c->mpModuleMgr = nullptr;
  mMembers.clear();
  for (cDependencyEntry* e : mDependencies) {
    e->mpDep->mpModuleMgr = nullptr;
    e->mpDep->mpEntry = nullptr;
    delete e;
  }
  mDependencies.clear();
  for (cDependencyGroup* g : mGroups) delete g;
  mGroups.clear();
  mClassLoaders.clear();
}

// --- ids and listing -----------------------------------------------------------

unsigned int cModuleMgrImpl::allocate(unsigned int fixed) {
  if (fixed == 0) return ++miIdCounter;
  // Strictly less: a fixed id equal to the counter is accepted.
  if (fixed < miIdCounter) cQCSExceptions::throwComponentIdNotUnique(fixed);
  miIdCounter = fixed;
  return fixed;
}

cAbstractComponent& cModuleMgrImpl::addComponent(cAbstractComponent& c, qstd::tAutoPtr<cAbstractComponent> owned,
                                                 const cComponentAddr& deployedBy) {
  QEL_ASSERT(c.mpModuleMgr == &mMgr, "qcs/cmodulemgr");
  QEL_ASSERT(c.mpData->mpEntry == 0, "qcs/cmodulemgr");
  const unsigned int counter = miIdCounter;
  const unsigned int id = allocate(c.fixedModuleID());
  qstd::tAutoPtr<cManagedComponent> handle;
  qstd::tAutoPtr<cComponentEntry> entry;
  try {
    handle.reset(owned.get() ? new cManagedComponent(owned) : new cManagedComponent(c));
    entry.reset(new cComponentEntry);
  } catch (...) {
    miIdCounter = counter;
    throw;
  }
  c.setComponentID(id);
  c.setDeployedBy(deployedBy);
  cComponentEntry& e = *entry;
  e.mpImpl = this;
  e.mpComponent = &c;
  e.mpHandle = handle.get();
  e.miSeq = miNextSeq++;
  e.miLocationKey = 0;
  e.mbDirtyLocation = false;
  e.mbPending = false;
  e.mbGone = false;
  e.mpNextGone = nullptr;
  e.mPosition = mComponents.append(handle.release());
  c.mpData->mpEntry = entry.release();
  index(e);
  handleComponentIterationLater();
  mMgr.sigComponentAdded(c);
  return c;
}

void cModuleMgrImpl::index(cComponentEntry& e) {
  cAbstractComponent& c = *e.mpComponent;
  mByAddress.emplace(addressKey(c.address()), &e);
  e.miLocationKey = locationKey(c.location());
  mByLocation.emplace(e.miLocationKey, &e);
  indexInterfaces(e);
  c.setWatch(&e);
  if (c.mbToRemove) ++miToRemoveListed;
  listReferrer(e);
  updatePending(e);
}

void cModuleMgrImpl::indexInterfaces(cComponentEntry& e) {
  cAbstractComponent& c = *e.mpComponent;
  for (unsigned int i = 0; i < c.numInterfaces(); ++i) {
    cAbstractInterface& iface = c.getInterface(i);
    const qrmi::cConnectable* object = &iface;
    if (std::find(e.mvInterfaces.begin(), e.mvInterfaces.end(), object) == e.mvInterfaces.end()) {
      e.mvInterfaces.push_back(object);
      mByInterface.emplace(object, &e);
    }
    const qstd::cAsciiString& name = iface.desc().name();
    if (std::find(e.mvNames.begin(), e.mvNames.end(), name) == e.mvNames.end()) {
      e.mvNames.push_back(name);
      insertInto(mByName, name, e.miSeq, &e);
    }
  }
}

void cModuleMgrImpl::unindexInterfaces(cComponentEntry& e) {
  for (const qstd::cAsciiString& name : e.mvNames) eraseFrom(mByName, name, e.miSeq);
  for (const qrmi::cConnectable* object : e.mvInterfaces) eraseEntry(mByInterface, object, &e);
  e.mvNames.clear();
  e.mvInterfaces.clear();
}

void detail::cComponentEntry::interfacesChanged(cAbstractInterfaceProvider&) {
  mpImpl->unindexInterfaces(*this);
  mpImpl->indexInterfaces(*this);
}

void cModuleMgrImpl::unlist(cComponentEntry& e, bool dying) {
  cAbstractComponent& c = *e.mpComponent;
  c.setWatch(nullptr);
  unindexInterfaces(e);
  if (e.mbPending) mPending.erase(e.miSeq);
  eraseEntry(mByAddress, addressKey(c.address()), &e);
  if (e.mbDirtyLocation)
    mDirtyLocations.erase(e.miSeq);
  else
    eraseEntry(mByLocation, e.miLocationKey, &e);
  if (c.mbToRemove) --miToRemoveListed;
  unlistReferrer(e);
  c.mpData->mpEntry = nullptr;
  e.mbGone = true;
  cManagedComponent* handle = *e.mPosition;
  *e.mPosition = nullptr;
  mComponents.eraseLater(e.mPosition);
  e.mpNextGone = mpGraveyard;
  mpGraveyard = &e;
  if (dying) handle->release();
  // The component's destructor may reach the manager again; the entry and
  // the list node stay until the outermost walk ends.
  cWalk walk(*this);
  delete handle;
}

// --- references between components ---------------------------------------------

std::vector<cAbstractComponent*> cModuleMgrImpl::targetsOf(const cAbstractComponent& c) {
  std::vector<cAbstractComponent*> targets;
  for (cAbstractComponent* t : c.mpData->mRequired)
    if (std::find(targets.begin(), targets.end(), t) == targets.end()) targets.push_back(t);
  return targets;
}

void cModuleMgrImpl::listReferrer(cComponentEntry& e) {
  cAbstractComponent& c = *e.mpComponent;
  for (cAbstractComponent* t : targetsOf(c)) {
    detail::cReferrers& refs = mReferrers[t];
    refs.mListed.emplace(e.miSeq, &e);
    if (!c.mbToRemove) ++refs.miUnmarked;
    updatePendingOf(t);
  }
}

void cModuleMgrImpl::unlistReferrer(cComponentEntry& e) {
  cAbstractComponent& c = *e.mpComponent;
  for (cAbstractComponent* t : targetsOf(c)) {
    std::unordered_map<const cAbstractComponent*, detail::cReferrers>::iterator refs = mReferrers.find(t);
    if (refs == mReferrers.end()) continue;
    refs->second.mListed.erase(e.miSeq);
    if (!c.mbToRemove) --refs->second.miUnmarked;
    updatePendingOf(t);
  }
}

void cModuleMgrImpl::requiredAdded(cAbstractComponent& c, cAbstractComponent& target) {
  detail::cReferrers& refs = mReferrers[&target];
  if (refs.mAll[&c]++ != 0) return;
  if (cComponentEntry* e = c.mpData->mpEntry) {
    refs.mListed.emplace(e->miSeq, e);
    if (!c.mbToRemove) ++refs.miUnmarked;
    updatePendingOf(&target);
  }
}

void cModuleMgrImpl::componentsReferencedBy(const cAbstractComponent& c,
                                            cAbstractComponent::tComponentList& out) const {
  std::unordered_map<const cAbstractComponent*, detail::cReferrers>::const_iterator refs = mReferrers.find(&c);
  if (refs == mReferrers.end()) return;
  for (const auto& r : refs->second.mListed) out.append(r.second->mpComponent);
}

// --- component hooks ---------------------------------------------------------------

void cModuleMgrImpl::memberConstructed(cAbstractComponent& c) { mMembers.insert(&c); }

void cModuleMgrImpl::memberDestroyed(cAbstractComponent& c) {
  if (cComponentEntry* e = c.mpData->mpEntry) {
    if (!mbDying) {
      try {
        cWalk walk(*this);
        mMgr.sigComponentRemoved(c);
      } catch (...) {
        // Nothing may escape the component's destructor.
      }
    }
    if (c.mpData->mpEntry == e) unlist(*e, true);
  }
  // Components that required this one forget it.
  std::unordered_map<const cAbstractComponent*, detail::cReferrers>::iterator refs = mReferrers.find(&c);
  if (refs != mReferrers.end()) {
    std::unordered_map<cAbstractComponent*, unsigned int> all;
    all.swap(refs->second.mAll);
    mReferrers.erase(refs);
    for (auto& r : all) {
      cAbstractComponent::tComponentList& required = r.first->mpData->mRequired;
      while (required.remove(&c)) {
      }
      try {
        r.first->modifyComponentDep();
      } catch (...) {
      }
    }
  }
  // And this one stops counting as a referrer.
  for (cAbstractComponent* t : targetsOf(c)) {
    std::unordered_map<const cAbstractComponent*, detail::cReferrers>::iterator it = mReferrers.find(t);
    if (it == mReferrers.end()) continue;
    it->second.mAll.erase(&c);
    if (it->second.mAll.empty() && it->second.mListed.empty()) mReferrers.erase(it);
  }
  mMembers.erase(&c);
}

void cModuleMgrImpl::flagsChanged(cAbstractComponent& c) {
  if (cComponentEntry* e = c.mpData->mpEntry) updatePending(*e);
}

void cModuleMgrImpl::markedForRemoval(cAbstractComponent& c) {
  cComponentEntry* e = c.mpData->mpEntry;
  if (!e) return;
  ++miToRemoveListed;
  for (cAbstractComponent* t : targetsOf(c)) {
    std::unordered_map<const cAbstractComponent*, detail::cReferrers>::iterator refs = mReferrers.find(t);
    if (refs == mReferrers.end()) continue;
    --refs->second.miUnmarked;
    updatePendingOf(t);
  }
  updatePending(*e);
}

void cModuleMgrImpl::locationTouched(cAbstractComponent& c) {
  cComponentEntry* e = c.mpData->mpEntry;
  if (!e || e->mbDirtyLocation) return;
  eraseEntry(mByLocation, e->miLocationKey, e);
  mDirtyLocations.emplace(e->miSeq, e);
  e->mbDirtyLocation = true;
}

// --- the pass ----------------------------------------------------------------------

bool cModuleMgrImpl::needsVisit(const cComponentEntry& e) const {
  const cAbstractComponent& c = *e.mpComponent;
  if (c.mbToRemove) {
    // Without referrers it goes; with unmarked ones it marks them. Once all
    // its referrers are marked, a visit would only mark them again.
    std::unordered_map<const cAbstractComponent*, detail::cReferrers>::const_iterator refs = mReferrers.find(&c);
    return refs == mReferrers.end() || refs->second.mListed.empty() || refs->second.miUnmarked != 0;
  }
  return !c.mbAnnounced || c.mbInterfaceDepModified || c.mbComponentDepModified;
}

void cModuleMgrImpl::updatePending(cComponentEntry& e) {
  const bool needed = needsVisit(e);
  if (needed == e.mbPending) return;
  if (needed)
    mPending.emplace(e.miSeq, &e);
  else
    mPending.erase(e.miSeq);
  e.mbPending = needed;
}

void cModuleMgrImpl::updatePendingOf(const cAbstractComponent* c) {
  if (mMembers.count(const_cast<cAbstractComponent*>(c)) == 0) return;
  if (cComponentEntry* e = c->mpData->mpEntry) updatePending(*e);
}

qsa::piVoid cModuleMgrImpl::sltComponentManagement() {
  if (!mbPassAllowed) {
    // A pass is running further up the stack: try again later.
    mComponentWork.start();
    return qsa::piVoid();
  }
  struct cAllow {
    explicit cAllow(bool& allowed) : mAllowed(allowed) { mAllowed = false; }
    ~cAllow() { mAllowed = true; }
    bool& mAllowed;
  } allow(mbPassAllowed);
  pass(true);
  purgeClassLoaders();
  return qsa::piVoid();
}

qsa::piVoid cModuleMgrImpl::sltIdle() {
  mMgr.sigIdle();
  return qsa::piVoid();
}

void cModuleMgrImpl::purgeClassLoaders() {
  for (qstd::tPtrList<qpi::cAbstractClassLoader>::iterator it = mClassLoaders.begin(); it != mClassLoaders.end();) {
    if ((*it)->isUnused())
      it = mClassLoaders.erase(it);
    else
      ++it;
  }
}

void cModuleMgrImpl::pass(bool notify) {
  cWalk walk(*this);
  qpi::cAbstractOut& out = qpi::cAbstractOut::current();
  const bool debugLines = out.enabled(qpi::cAbstractOut::LevelDebug, __FILE__);
  if (debugLines) {
    // The lines name every referrer of every component marked for removal,
    // in every pass: only a walk over the whole list writes them all.
    for (cModuleMgr::tComponents::iterator it = mComponents.begin(); it != mComponents.end(); ++it) {
      cManagedComponent* handle = *it;
      if (handle && handle->component().mpData->mpEntry) visit(*handle->component().mpData->mpEntry, notify, true);
    }
  } else {
    tSeq cursor = 0;
    for (;;) {
      tEntries::iterator next = mPending.upper_bound(cursor);
      if (next == mPending.end()) break;
      cursor = next->first;
      visit(*next->second, notify, false);
    }
  }
  // A component marked for removal that is still here waits for its
  // referrers: come back.
  if (miToRemoveListed != 0) handleComponentIterationLater();
}

void cModuleMgrImpl::visit(cComponentEntry& e, bool notify, bool debugLines) {
  cAbstractComponent& c = *e.mpComponent;
  if (c.mbToRemove) {
    cAbstractComponent::tComponentList referrers;
    componentsReferencedBy(c, referrers);
    if (!referrers.empty()) {
      for (cAbstractComponent* r : referrers) {
        if (debugLines) {
          qstd::cAsciiString line("cModuleMgr: Mark referencing component for removal... (");
          r->location().appendTo(line);
          line += ")";
          QEL_DEBUG(line.c_str());
        }
        r->removeLater();
      }
      if (!e.mbGone) updatePending(e);
      return;
    }
    if (notify) {
      mMgr.sigComponentRemoved(c);
      if (e.mbGone) return;
    }
    unlist(e, false);
    return;
  }
  if (!c.mbAnnounced) {
    if (c.delayAnnouncement()) {
      handleComponentIterationLater();
    } else {
      mMgr.sigComponentRegistered(c);
      if (e.mbGone) return;
      c.setAnnounced();
      c.notifyComponentRegistered();
    }
    if (e.mbGone) return;
  }
  if (c.mbAnnounced) {
    if (c.mbInterfaceDepModified) {
      c.recalcInterfaceDeps();
      if (e.mbGone) return;
      mMgr.sigInterfaceDepsChanged(c.location());
      if (e.mbGone) return;
      c.resetInterfaceDepModification();
    }
    if (c.mbComponentDepModified) {
      mMgr.sigComponentDepsChanged();
      if (e.mbGone) return;
      c.resetComponentDepModification();
    }
  }
  updatePending(e);
}

void cModuleMgrImpl::removeAllComponentsNow() {
  {
    cWalk walk(*this);
    for (cModuleMgr::tComponents::iterator it = mComponents.begin(); it != mComponents.end(); ++it)
      if (cManagedComponent* handle = *it) handle->component().removeLater();
  }
  while (mComponents.size() != 0) pass(false);
}

void cModuleMgrImpl::handleComponentIterationLater() {
  if (mbDying) return;
  if (!mComponentWork.isStarted()) mComponentWork.start();
}

// --- look-ups ----------------------------------------------------------------------

cAbstractComponent* cModuleMgrImpl::hasComponent(const cComponentAddr& address) const {
  if (!address.valid()) return nullptr;
  cComponentEntry* e = firstUnder(mByAddress, addressKey(address));
  return e ? e->mpComponent : nullptr;
}

cAbstractComponent* cModuleMgrImpl::hasComponent(const cComponentLocation& location) const {
  // Candidates by the key of the location each had when it was listed, and
  // every component that may have changed its location since.
  cComponentEntry* first = nullptr;
  std::pair<std::unordered_multimap<std::size_t, cComponentEntry*>::const_iterator,
            std::unordered_multimap<std::size_t, cComponentEntry*>::const_iterator>
      range = mByLocation.equal_range(locationKey(location));
  for (; range.first != range.second; ++range.first) {
    cComponentEntry* e = range.first->second;
    if ((!first || e->miSeq < first->miSeq) && e->mpComponent->location() == location) first = e;
  }
  for (const auto& dirty : mDirtyLocations) {
    if (first && dirty.first > first->miSeq) break;
    if (dirty.second->mpComponent->location() == location) {
      first = dirty.second;
      break;
    }
  }
  return first ? first->mpComponent : nullptr;
}

cAbstractComponent* cModuleMgrImpl::hasComponent(const qstd::cAsciiString& context) const {
  for (const cManagedComponent* handle : mComponents)
    if (handle && handle->component().moduleInfo().context() == context)
      return const_cast<cAbstractComponent*>(&handle->component());
  return nullptr;
}

cAbstractComponent* cModuleMgrImpl::hasComponent(const qrmi::cConnectable& iface) const {
  cComponentEntry* e = firstUnder(mByInterface, &iface);
  return e ? e->mpComponent : nullptr;
}

bool cModuleMgrImpl::applicationCloseAdvisable(qpi::cAbstractQELApp& app) {
  cWalk walk(*this);
  bool advisable = true;
  for (cModuleMgr::tComponents::iterator it = mComponents.begin(); it != mComponents.end(); ++it)
    if (cManagedComponent* handle = *it)
      if (!handle->component().applicationCloseAdvisable(app)) advisable = false;
  return advisable;
}

void cModuleMgrImpl::submitShortlyRemove() {
  cWalk walk(*this);
  for (cModuleMgr::tComponents::iterator it = mComponents.begin(); it != mComponents.end(); ++it)
    if (cManagedComponent* handle = *it) handle->component().notifyShortlyRemove();
}

qstd::tAutoPtr<qstd::cAbstractException> cModuleMgrImpl::createRemoteException(const qstd::cAsciiString& typeName,
                                                                               qsa::cAbstractDeserializer& d) {
  cWalk walk(*this);
  for (cModuleMgr::tComponents::iterator it = mComponents.begin(); it != mComponents.end(); ++it) {
    cManagedComponent* handle = *it;
    if (!handle) continue;
    qstd::tAutoPtr<qstd::cAbstractException> e = handle->component().tryCreateRegisteredException(typeName, d);
    if (e.get()) return e;
  }
  cQCSExceptions::throwUnknownRemoteException(typeName);
}

// --- dependencies -------------------------------------------------------------------

// Groups are not deleted while one of them dispatches.
struct detail::cDependencyGroup::cDispatch {
  explicit cDispatch(cModuleMgrImpl& impl) : mImpl(impl) { ++mImpl.miDispatchDepth; }
  ~cDispatch() { --mImpl.miDispatchDepth; }
  cModuleMgrImpl& mImpl;
};

detail::cDependencyGroup::cDependencyGroup(cModuleMgrImpl& impl, bool removed)
    : mImpl(impl), mbRemoved(removed), miMembers(0) {}

cDependencyGroup& cModuleMgrImpl::tailGroup(bool removed) {
  qrmi::localSignal1<qsa::piVoid, cAbstractComponent&>& signal =
      removed ? mMgr.sigComponentRemoved : mMgr.sigComponentRegistered;
  cDependencyGroup*& tail = removed ? mpTailRemoved : mpTailRegistered;
  // A run continues while its group is still the signal's last receiver.
  if (tail && signal.slotCount() != 0 && &signal.slotCalls().back()->assignedObject() == tail) return *tail;
  qstd::tAutoPtr<cDependencyGroup> group(new cDependencyGroup(*this, removed));
  mGroups.reserve(mGroups.size() + 1);
  if (removed)
    signal.connect(*group, &cDependencyGroup::sltRemoved);
  else
    signal.connect(*group, &cDependencyGroup::sltRegistered);
  mGroups.push_back(group.get());
  tail = group.release();
  return *tail;
}

void cModuleMgrImpl::dependencyConstructed(cInterfaceDep& dep) {
  dropEmptyGroups();
  qstd::tAutoPtr<cDependencyEntry> entry(new cDependencyEntry);
  entry->mpDep = &dep;
  entry->miSeq = miNextDependencySeq++;
  entry->meKind = cDependencyEntry::eNone;
  entry->mbByLocation = false;
  entry->miLocationKey = 0;
  entry->mpRegistered = &tailGroup(false);
  entry->mpRegistered->miMembers++;
  try {
    entry->mpRemoved = &tailGroup(true);
  } catch (...) {
    entry->mpRegistered->miMembers--;
    throw;
  }
  entry->mpRemoved->miMembers++;
  mDependencies.insert(entry.get());
  dep.mpEntry = entry.release();
  reindex(*dep.mpEntry);
}

void cModuleMgrImpl::dependencyDestroyed(cInterfaceDep& dep) {
  cDependencyEntry* e = dep.mpEntry;
  if (!e) return;
  dep.mpEntry = nullptr;
  if (e->meKind == cDependencyEntry::eWaiting)
    eraseFrom(e->mpRegistered->mWaiting, dep.desc().name(), e->miSeq);
  else if (e->meKind == cDependencyEntry::eEager)
    e->mpRegistered->mEager.erase(e->miSeq);
  if (e->mbByLocation) eraseFrom(e->mpRemoved->mByLocation, e->miLocationKey, e->miSeq);
  e->mpRegistered->miMembers--;
  e->mpRemoved->miMembers--;
  mDependencies.erase(e);
  delete e;
  dropEmptyGroups();
}

void cModuleMgrImpl::dropEmptyGroups() {
  if (miDispatchDepth != 0) return;
  for (std::size_t i = mGroups.size(); i-- > 0;) {
    cDependencyGroup* g = mGroups[i];
    if (g->miMembers != 0) continue;
    if (g == mpTailRegistered) mpTailRegistered = nullptr;
    if (g == mpTailRemoved) mpTailRemoved = nullptr;
    mGroups.erase(mGroups.begin() + static_cast<std::ptrdiff_t>(i));
    delete g;
  }
}

void cModuleMgrImpl::dependencyChanged(cInterfaceDep& dep) {
  if (dep.mpEntry) reindex(*dep.mpEntry);
}

void cModuleMgrImpl::reindex(cDependencyEntry& e) {
  const cInterfaceDep& dep = *e.mpDep;
  const bool matched = dep.miState == 1;
  const bool valid = dep.mMatch.valid();
  cDependencyEntry::Kind kind = cDependencyEntry::eNone;
  switch (dep.meAlgorithm) {
    case cInterfaceDep::saUseInteractive:
      kind = cDependencyEntry::eEager;
      break;
    case cInterfaceDep::saUseFirstBest:
      kind = !matched ? cDependencyEntry::eWaiting : (valid ? cDependencyEntry::eNone : cDependencyEntry::eEager);
      break;
    case cInterfaceDep::saUseExplicit:
      kind = matched && !valid ? cDependencyEntry::eEager : cDependencyEntry::eNone;
      break;
    default:
      break;
  }
  if (kind != e.meKind) {
    cDependencyGroup& g = *e.mpRegistered;
    if (kind == cDependencyEntry::eWaiting)
      insertInto(g.mWaiting, dep.desc().name(), e.miSeq, &e);
    else if (kind == cDependencyEntry::eEager)
      g.mEager.emplace(e.miSeq, &e);
    if (e.meKind == cDependencyEntry::eWaiting)
      eraseFrom(g.mWaiting, dep.desc().name(), e.miSeq);
    else if (e.meKind == cDependencyEntry::eEager)
      g.mEager.erase(e.miSeq);
    e.meKind = kind;
  }
  const std::size_t key = valid ? locationKey(dep.mMatch.location()) : 0;
  if (valid != e.mbByLocation || key != e.miLocationKey) {
    cDependencyGroup& g = *e.mpRemoved;
    if (valid) insertInto(g.mByLocation, key, e.miSeq, &e);
    if (e.mbByLocation) eraseFrom(g.mByLocation, e.miLocationKey, e.miSeq);
    e.mbByLocation = valid;
    e.miLocationKey = key;
  }
}

cComponentEntry* cModuleMgrImpl::nextToRecalc(const cInterfaceDep& dep, const cComponentEntry* after) const {
  const bool matched = dep.miState == 1;
  const bool valid = dep.mMatch.valid();
  switch (dep.meAlgorithm) {
    case cInterfaceDep::saUseInteractive:
      break;
    case cInterfaceDep::saUseFirstBest:
      if (!matched) return firstAfter(mByName, dep.desc().name(), after ? after->miSeq : 0);
      if (valid) return nullptr;
      break;
    case cInterfaceDep::saUseExplicit:
      if (!matched || valid) return nullptr;
      break;
    default:
      return nullptr;
  }
  // Any component makes a difference now: the next one in the list.
  cModuleMgr::tComponents& list = const_cast<cModuleMgr::tComponents&>(mComponents);
  cModuleMgr::tComponents::iterator it = list.begin();
  if (after) {
    it = after->mPosition;
    ++it;
  }
  return it == list.end() ? nullptr : (*it)->component().mpData->mpEntry;
}

qsa::piVoid detail::cDependencyGroup::sltRegistered(cAbstractComponent& c) {
  cDispatch dispatch(mImpl);
  cModuleMgrImpl::cWalk walk(mImpl);
  cComponentEntry* ce = cModuleMgrImpl::entryOf(c);
  tSeq cursor = 0;
  for (;;) {
    cDependencyEntry* next = nullptr;
    tDependencies::const_iterator eager = mEager.upper_bound(cursor);
    if (eager != mEager.end()) next = eager->second;
    // Waiting dependencies react only to a component that offers an
    // interface of their name.
    for (unsigned int i = 0; i < c.numInterfaces(); ++i) {
      cDependencyEntry* waiting = firstAfter(mWaiting, c.getInterface(i).desc().name(), cursor);
      if (waiting && (!next || waiting->miSeq < next->miSeq)) next = waiting;
    }
    if (!next) break;
    cursor = next->miSeq;
    next->mpDep->sltComponentRegistered(c);
    if (ce && ce->mbGone) break;
  }
  return qsa::piVoid();
}

qsa::piVoid detail::cDependencyGroup::sltRemoved(cAbstractComponent& c) {
  cDispatch dispatch(mImpl);
  const std::size_t key = cModuleMgrImpl::locationKey(c.location());
  tSeq cursor = 0;
  for (;;) {
    cDependencyEntry* next = firstAfter(mByLocation, key, cursor);
    if (!next) break;
    cursor = next->miSeq;
    next->mpDep->sltComponentRemoved(c);
  }
  return qsa::piVoid();
}

}  // namespace qcs
