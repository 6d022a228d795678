// The private part of cModuleMgr: the component list, both works, the class
// loaders, and the indexes that keep passes, announcements and look-ups
// independent of the number of components.
//
// Exactness: a pass visits the components in list order as a walk over the
// whole list would, skipping only those whose visit would do nothing (the
// pending set), unless the debug output shows the pass's debug lines, when
// it walks the whole list. Dependencies are dispatched from the manager's
// signals in groups: one receiver per run of dependencies connected in a row,
// so that other receivers of those signals keep their place among them, and
// within a group only the dependencies that can react to a component are
// called, in the order they were connected.
#ifndef QELCORE_QCS_DETAIL_CMODULEMGRIMPL_H
#define QELCORE_QCS_DETAIL_CMODULEMGRIMPL_H

#include <cstddef>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "qelcore/pi/cwork.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractinterfaceprovider.h"
#include "qelcore/qcs/cinterfacedep.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tptrlist.h"
#include "qelcore/std/tptrvector.h"

namespace qpi {
class cWorkQueue;
}

namespace qcs {

namespace detail {

// Position in the manager's list (components) or in connection order
// (dependencies); never reused.
typedef unsigned long long tSeq;

struct cAsciiHash {
  std::size_t operator()(const qstd::cAsciiString& s) const;
};

struct cComponentEntry;

// What a component carries for the manager besides its own fields.
struct cComponentData {
  cComponentData() : mDeps(false), mpEntry(nullptr) {}
  cAbstractComponent::tComponentList mRequired;
  qstd::tPtrVector<cInterfaceDep> mDeps;
  qstd::tPtrList<qstd::cAbstractException> mPrototypes;
  // Null while the component is not listed.
  cComponentEntry* mpEntry;
};

typedef std::map<tSeq, cComponentEntry*> tEntries;

// One listed component.
struct cComponentEntry : public cAbstractInterfaceProvider::cWatch {
  void interfacesChanged(cAbstractInterfaceProvider& provider) override;

  cModuleMgrImpl* mpImpl;
  cAbstractComponent* mpComponent;
  cManagedComponent* mpHandle;
  tSeq miSeq;
  cModuleMgr::tComponents::iterator mPosition;
  // Keys under which the component is indexed now.
  std::vector<qstd::cAsciiString> mvNames;
  std::vector<const qrmi::cConnectable*> mvInterfaces;
  std::size_t miLocationKey;
  // The component has had its location in hand: it is searched by scanning.
  bool mbDirtyLocation;
  bool mbPending;
  bool mbGone;
  // Next entry of the removed ones that wait for the end of the walk.
  cComponentEntry* mpNextGone;
};

// The listed components that hold a reference to one component.
struct cReferrers {
  cReferrers() : miUnmarked(0) {}
  // Every component of the manager that holds a reference, with the count.
  std::unordered_map<cAbstractComponent*, unsigned int> mAll;
  // The listed ones, in list order.
  tEntries mListed;
  // Listed ones not marked for removal.
  unsigned int miUnmarked;
};

struct cDependencyEntry;
typedef std::map<tSeq, cDependencyEntry*> tDependencies;

// Receives one manager signal for a run of dependencies connected in a row.
class cDependencyGroup : public qrmi::cConnectable {
public:
  cDependencyGroup(cModuleMgrImpl& impl, bool removed);
  qsa::piVoid sltRegistered(cAbstractComponent& c);
  qsa::piVoid sltRemoved(cAbstractComponent& c);

  cModuleMgrImpl& mImpl;
  const bool mbRemoved;
  unsigned int miMembers;
  // Registered side: dependencies that react to any component, and those
  // waiting for a component that offers an interface of a name.
  tDependencies mEager;
  std::unordered_map<qstd::cAsciiString, tDependencies, cAsciiHash> mWaiting;
  // Removed side: dependencies by the key of their matched location.
  std::unordered_map<std::size_t, tDependencies> mByLocation;

private:
  struct cDispatch;
};

struct cDependencyEntry {
  enum Kind { eNone, eWaiting, eEager };
  cInterfaceDep* mpDep;
  tSeq miSeq;
  cDependencyGroup* mpRegistered;
  cDependencyGroup* mpRemoved;
  Kind meKind;
  bool mbByLocation;
  std::size_t miLocationKey;
};

}  // namespace detail

class cModuleMgrImpl : public qrmi::cConnectable {
public:
  explicit cModuleMgrImpl(cModuleMgr& mgr);
  ~cModuleMgrImpl() override;

  static cModuleMgrImpl& of(const cModuleMgr& mgr) { return mgr.impl(); }

  // Manager operations.
  cAbstractComponent& addComponent(cAbstractComponent& c, qstd::tAutoPtr<cAbstractComponent> owned,
                                   const cComponentAddr& deployedBy);
  cAbstractComponent* hasComponent(const cComponentAddr& address) const;
  cAbstractComponent* hasComponent(const cComponentLocation& location) const;
  cAbstractComponent* hasComponent(const qstd::cAsciiString& context) const;
  cAbstractComponent* hasComponent(const qrmi::cConnectable& iface) const;
  void componentsReferencedBy(const cAbstractComponent& c, cAbstractComponent::tComponentList& out) const;
  bool applicationCloseAdvisable(qpi::cAbstractQELApp& app);
  void submitShortlyRemove();
  void removeAllComponentsNow();
  void handleComponentIterationLater();
  qstd::tAutoPtr<qstd::cAbstractException> createRemoteException(const qstd::cAsciiString& typeName,
                                                                 qsa::cAbstractDeserializer& d);

  // Hooks of the components.
  void memberConstructed(cAbstractComponent& c);
  void memberDestroyed(cAbstractComponent& c);
  void flagsChanged(cAbstractComponent& c);
  void markedForRemoval(cAbstractComponent& c);
  void requiredAdded(cAbstractComponent& c, cAbstractComponent& target);
  void locationTouched(cAbstractComponent& c);

  // Hooks of the dependencies.
  void dependencyConstructed(cInterfaceDep& dep);
  void dependencyDestroyed(cInterfaceDep& dep);
  void dependencyChanged(cInterfaceDep& dep);
  // The next listed component after `after` (from the front when null) whose
  // recalculation can change something for `dep` in its present state; null
  // when there is none. `after` stays valid during a walk.
  detail::cComponentEntry* nextToRecalc(const cInterfaceDep& dep, const detail::cComponentEntry* after) const;

  // Keeps entries of removed components (and list nodes) alive while the
  // list or an index is being walked.
  class cWalk {
  public:
    explicit cWalk(cModuleMgrImpl& impl);
    ~cWalk();
    cWalk(const cWalk&) = delete;
    cWalk& operator=(const cWalk&) = delete;

  private:
    cModuleMgrImpl& mImpl;
  };

  static std::size_t locationKey(const cComponentLocation& location);
  static detail::cComponentEntry* entryOf(const cAbstractComponent& c);

  cModuleMgr& mMgr;
  qpi::cWorkQueue& mQueue;
  qpi::cWork mComponentWork;
  qpi::cWork mIdleWork;
  cModuleMgr::tComponents mComponents;
  qstd::tPtrList<qpi::cAbstractClassLoader> mClassLoaders;
  bool mbPassAllowed;
  unsigned int miIdCounter;
  qpi::cAbstractQELApp* mpApp;

private:
  friend class detail::cDependencyGroup;
  friend struct detail::cComponentEntry;

  qsa::piVoid sltComponentManagement();
  qsa::piVoid sltIdle();
  unsigned int allocate(unsigned int fixed);
  void pass(bool notify);
  void visit(detail::cComponentEntry& e, bool notify, bool debugLines);
  void unlist(detail::cComponentEntry& e, bool dying);
  void purgeClassLoaders();
  void endWalk();

  bool needsVisit(const detail::cComponentEntry& e) const;
  void updatePending(detail::cComponentEntry& e);
  void updatePendingOf(const cAbstractComponent* c);
  void index(detail::cComponentEntry& e);
  void unindexInterfaces(detail::cComponentEntry& e);
  void indexInterfaces(detail::cComponentEntry& e);
  // The distinct components that `c` requires.
  static std::vector<cAbstractComponent*> targetsOf(const cAbstractComponent& c);
  void listReferrer(detail::cComponentEntry& e);
  void unlistReferrer(detail::cComponentEntry& e);

  detail::cDependencyGroup& tailGroup(bool removed);
  void leaveGroup(detail::cDependencyGroup* group);
  void reindex(detail::cDependencyEntry& e);
  void dropEmptyGroups();

  detail::tSeq miNextSeq;
  detail::tEntries mPending;
  // Names are shared by many components and searched from a position on;
  // the other keys are (nearly) unique.
  std::unordered_map<qstd::cAsciiString, detail::tEntries, detail::cAsciiHash> mByName;
  std::unordered_multimap<const qrmi::cConnectable*, detail::cComponentEntry*> mByInterface;
  std::unordered_multimap<unsigned long long, detail::cComponentEntry*> mByAddress;
  std::unordered_multimap<std::size_t, detail::cComponentEntry*> mByLocation;
  detail::tEntries mDirtyLocations;
  std::unordered_map<const cAbstractComponent*, detail::cReferrers> mReferrers;
  unsigned int miToRemoveListed;
  unsigned int miWalkDepth;
  // Removed entries whose list nodes go when the outermost walk ends.
  detail::cComponentEntry* mpGraveyard;
  std::unordered_set<cAbstractComponent*> mMembers;

  detail::tSeq miNextDependencySeq;
  std::unordered_set<detail::cDependencyEntry*> mDependencies;
  std::vector<detail::cDependencyGroup*> mGroups;
  detail::cDependencyGroup* mpTailRegistered;
  detail::cDependencyGroup* mpTailRemoved;
  unsigned int miDispatchDepth;
  bool mbDying;
};

}  // namespace qcs

#endif
