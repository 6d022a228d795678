/// \class qcs::cAbstractComponent
/// Base of every component: an object, in a module or in the application,
/// that the module manager lists, gives an id and an address, announces to the
/// system, and removes in dependency order. A component publishes interfaces
/// (addInterface) and states what it needs as interface dependencies
/// (cInterfaceDep members); it may hold references to other components
/// (addLocalRequiredComponent), which then go first when both are removed.
///
/// \code
///   class cClock : public qcs::cAbstractComponent {
///   public:
///     explicit cClock(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr) {
///       addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cClockApi));
///     }
///   };
///   mgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cClock(mgr)), qcs::cComponentAddr());
/// \endcode
///
/// Changes (removeLater(), new dependencies or references) only set a flag and
/// ask the manager for a pass; the manager's next pass on the work queue
/// handles them. States: created, listed (id assigned), announced, marked for
/// removal, gone.
///
/// A component destroyed while it is still listed leaves the list at once;
/// the manager emits sigComponentRemoved for it first (by then only what this
/// base class holds is left of it). Components that required it forget it.
#ifndef QELCORE_QCS_CABSTRACTCOMPONENT_H
#define QELCORE_QCS_CABSTRACTCOMPONENT_H

#include "qelcore/qcs/cabstractmodule.h"
#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qstd {
class cAbstractException;
template <typename T>
struct tListKeepElement;
template <typename T, typename Disposer>
class tList;
}  // namespace qstd
namespace qpi {
class cAbstractQELApp;
}

namespace qcs {

class cInterfaceDep;
class cModuleMgr;
class cModuleMgrImpl;
namespace detail {
struct cComponentData;
}

class QEL_EXPORT cAbstractComponent : public cAbstractModule {
public:
  /// A list of components the list does not own.
  typedef qstd::tList<cAbstractComponent*, qstd::tListKeepElement<cAbstractComponent*>> tComponentList;

  /// Address and deployedBy invalid, all flags false, the location this host
  /// and process (cComponentLocation::provide()).
  explicit cAbstractComponent(cModuleMgr& mgr);
  /// For a component created by a class loader.
  cAbstractComponent(cModuleMgr& mgr, qsa::cReferenceFrame& frame);
  ~cAbstractComponent() override;

  bool isPlugIn() const override;             ///< false
  bool isComponent() const override;          ///< true
  virtual qstd::cAsciiString isSpecific();    ///< empty
  virtual bool explicitLocal() const;         ///< false
  virtual unsigned int fixedQueueID() const;  ///< 1
  /// 0: the manager picks the id.
  virtual unsigned int fixedModuleID() const;
  virtual bool isLocal() const;  ///< true
  /// Called right after the component was announced.
  virtual void notifyComponentRegistered();
  /// Called for every component by cModuleMgr::submitShortlyRemove().
  virtual void notifyShortlyRemove();
  virtual bool applicationCloseAdvisable(qpi::cAbstractQELApp& app);  ///< true
  /// The dependencies, in the order they were created (not owned).
  virtual const qstd::tPtrVector<cInterfaceDep>& interfaceDeps() const;
  /// While true, the component is not announced (and its dependencies are not
  /// recalculated); the manager asks again in its next pass.
  virtual bool delayAnnouncement() const;  ///< false

  /// The manager the component was built for; a bug exception once that
  /// manager is gone.
  cModuleMgr& moduleMgr() const;
  /// Queue id and component id; invalid until the manager lists the component.
  const cComponentAddr& address() const { return mAddress; }
  /// The address, this host and this process.
  const cComponentLocation& location() const { return mLocation; }
  /// The component that deployed this one; invalid when none did.
  const cComponentAddr& deployedBy() const { return mDeployedBy; }

  /// Marks the component for removal in the manager's next pass; components
  /// that reference it are marked then too, and go first.
  void removeLater();
  /// Whether removeLater() was called.
  bool toRemove() const { return mbToRemove; }
  /// Whether the manager has announced the component.
  bool announced() const { return mbAnnounced; }

  /// Notes that this component holds a reference to `c` (null is ignored).
  void addLocalRequiredComponent(cAbstractComponent* c);
  /// The components this one holds references to, in the order noted.
  const tComponentList& localRequiredComponents() const;
#if __cplusplus < 202002L
  /// requiresComponent(c), under its older name.
  bool requires(const cAbstractComponent* c) const { return requiresComponent(c); }
#endif
  /// Whether `c` is among the local required components (the name to use
  /// where `requires` is a keyword).
  bool requiresComponent(const cAbstractComponent* c) const;

  /// The local required components changed since the last pass.
  bool componentDepModified() const { return mbComponentDepModified; }
  /// An interface dependency was added, removed or lost its match since the last pass.
  bool interfaceDepModified() const { return mbInterfaceDepModified; }
  /// Clears componentDepModified(); the manager's pass does.
  void resetComponentDepModification();
  /// Clears interfaceDepModified(); the manager's pass does.
  void resetInterfaceDepModification();

  /// A new exception of that type name from the first registered prototype
  /// that has it, loaded from `d`; empty when no prototype has the name.
  qstd::tAutoPtr<qstd::cAbstractException> tryCreateRegisteredException(const qstd::cAsciiString& typeName,
                                                                        qsa::cAbstractDeserializer& d);

protected:
  /// The location, to change (for example its local id).
  cComponentLocation& componentLocation();
  /// Marks the component announced; the manager's pass does.
  void setAnnounced();
  ///@{
  /// Set the flag and ask the manager for a pass.
  void modifyComponentDep();
  void modifyInterfaceDep();
  ///@}
  /// Prototype of an exception type that the remote side of this component's
  /// calls may raise (owned from now on).
  void registerRemoteException(qstd::tAutoPtr<qstd::cAbstractException> prototype);

private:
  friend class cModuleMgr;
  friend class cModuleMgrImpl;
  friend class cInterfaceDep;
  void setDeployedBy(const cComponentAddr& address) { mDeployedBy = address; }
  void setComponentID(unsigned int id);
  void addInterfaceDep(cInterfaceDep* dep);
  void removeInterfaceDep(cInterfaceDep* dep);
  void recalcInterfaceDeps();
  void requestPass();
  void enroll();
  /// Sets a modification flag; setting it asks for a pass.
  void setFlag(bool& flag, bool on);

  cModuleMgr* mpModuleMgr;  ///< null once the manager is gone
  cComponentAddr mAddress;
  cComponentAddr mDeployedBy;
  bool mbComponentDepModified = false;
  cComponentLocation mLocation;
  bool mbToRemove = false;
  bool mbInterfaceDepModified = false;
  bool mbAnnounced = false;
  /// The lists and the manager's bookkeeping.
  detail::cComponentData* mpData = nullptr;
};

}  // namespace qcs

#endif
