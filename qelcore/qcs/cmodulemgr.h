/// \class qcs::cModuleMgr
/// The registry of all components of a process. It gives components their
/// ids, keeps them in one list (insertion order is the order of every search
/// and pass), finds them by address, location, module context or interface,
/// announces them, recalculates their interface dependencies and removes them
/// in dependency order. All deferred work runs in one work item on the
/// system's work queue, "ComponentManagement"; a periodic work "ComapatIdle"
/// emits sigIdle every 4000 ms.
///
/// \code
///   qce::cCoreExtensionMgr extensions;
///   qcs::cModuleMgr mgr(extensions);
///   mgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cClock(mgr)), qcs::cComponentAddr());
///   qpi::system().exec();                // the pass announces the clock
///   ...
///   mgr.removeAllComponentsNow();        // referencing components first
/// \endcode
///
/// Changes never act at once: they set flags and start the work; its pass
/// announces new components, recalculates dependencies and removes the
/// components marked for removal whose referrers are gone. A pass asked for
/// while one runs (from a nested event loop) is deferred.
///
/// Large component counts are indexed: a pass visits only components with
/// something to do (all of them while the debug output shows the manager's
/// debug lines), announcements reach only the dependencies that can react,
/// and look-ups by address, location and interface do not scan the list. The
/// order of every signal and the choice of providers are those of a pass over
/// the whole list. Read the list through components(); add and remove only
/// through the manager.
#ifndef QELCORE_QCS_CMODULEMGR_H
#define QELCORE_QCS_CMODULEMGR_H

#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qcs/cmanagedcomponent.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tptrlist.h"

namespace qce {
class cCoreExtensionMgr;
}
namespace qucs {
class cString;
}
namespace qpi {
class cAbstractClassLoader;
class cAbstractQELApp;
}  // namespace qpi

namespace qcs {

class cModuleMgrImpl;

class QEL_EXPORT cModuleMgr {
public:
  /// The component list: handles in list order.
  typedef qstd::tPtrList<cManagedComponent> tComponents;

  /// Every 4000 ms.
  qrmi::localSignal0<qsa::piVoid> sigIdle;
  /// addComponent() has listed a component.
  qrmi::localSignal1<qsa::piVoid, cAbstractComponent&> sigComponentAdded;
  /// A component has been announced.
  qrmi::localSignal1<qsa::piVoid, cAbstractComponent&> sigComponentRegistered;
  /// A component is about to leave the list.
  qrmi::localSignal1<qsa::piVoid, cAbstractComponent&> sigComponentRemoved;
  /// An announced component's local required components changed.
  qrmi::localSignal0<qsa::piVoid> sigComponentDepsChanged;
  /// An announced component's interface dependencies were recalculated.
  qrmi::localSignal1<qsa::piVoid, const cComponentLocation&> sigInterfaceDepsChanged;

  /// Puts both works on the system's work queue and starts the idle work.
  explicit cModuleMgr(const qce::cCoreExtensionMgr& coreExtensions);
  cModuleMgr(const cModuleMgr&) = delete;
  cModuleMgr& operator=(const cModuleMgr&) = delete;
  /// Takes both works off the queue, deletes the owned components (in list
  /// order), then the class loaders. Components and dependencies that outlive
  /// the manager are told that it is gone.
  virtual ~cModuleMgr();

  /// The core extensions given to the constructor.
  const qce::cCoreExtensionMgr& coreExtensions() const { return mCoreExtensions; }

  /// Stores the application object (not owned).
  void setApp(qpi::cAbstractQELApp& app);
  ///@{
  /// "No application object set!" before setApp().
  qpi::cAbstractQELApp& app();
  const qpi::cAbstractQELApp& app() const;
  ///@}

  ///@{
  /// Assigns the component's id (its fixedModuleID() or the next free one),
  /// lists it at the end, asks for a pass and emits sigComponentAdded. A fixed
  /// id below the last one assigned throws "Component id (%id%) not unique!"
  /// and lists nothing. Returns the component.
  cAbstractComponent& addComponent(cAbstractComponent& component, const cComponentAddr& deployedBy);
  cAbstractComponent& addComponent(qstd::tAutoPtr<cAbstractComponent> component, const cComponentAddr& deployedBy);
  ///@}

  /// Opens the module file (as given, see qpi::cPlatform::createClassLoader),
  /// creates its component, records the loader with the file name as the
  /// component's context, and adds the component as addComponent() does. The
  /// manager owns the loader from then on. Failures of the file throw
  /// cModuleLoadException and leave nothing behind.
  cAbstractComponent& loadComponent(const qucs::cString& file, const cComponentAddr& deployedBy);

  /// The components, in list order.
  const tComponents& components() const;

  ///@{
  /// The first component (in list order) with that address, location, module
  /// context or interface. The find forms throw "Module (%addr%) not found!"
  /// (the interface form "No public interface!"), the has forms return null.
  cAbstractComponent& findComponent(const cComponentAddr& address) const;
  cAbstractComponent& findComponent(const cComponentLocation& location) const;
  cAbstractComponent& findComponent(const qstd::cAsciiString& context) const;
  cAbstractComponent& findComponent(const qrmi::cConnectable& iface) const;
  cAbstractComponent* hasComponent(const cComponentAddr& address) const;
  cAbstractComponent* hasComponent(const cComponentLocation& location) const;
  cAbstractComponent* hasComponent(const qstd::cAsciiString& context) const;
  bool exists(const cComponentLocation& location) const;
  ///@}

  /// findComponent(address).removeLater().
  void removeComponent(const cComponentAddr& address);
  /// Appends, in list order, every listed component that requires `c`.
  void componentsReferencedBy(const cAbstractComponent& c, cAbstractComponent::tComponentList& out) const;

  /// Asks every component (all of them, in list order); false when one said no.
  bool applicationCloseAdvisable(qpi::cAbstractQELApp& app);
  /// notifyShortlyRemove() on every component, in list order.
  void submitShortlyRemove();
  /// Marks every component for removal and runs passes (without
  /// sigComponentRemoved) until the list is empty. Components that require
  /// each other never leave, and then this does not return.
  void removeAllComponentsNow();
  /// Starts the "ComponentManagement" work.
  void handleComponentIterationLater();
  /// Whether that work waits to run (a pass has been asked for).
  bool passRequested() const;

  /// The manager owns the loader from now on; loaders that report themselves
  /// unused are deleted after each pass.
  void registerClassLoader(qstd::tAutoPtr<qpi::cAbstractClassLoader> loader);

  /// Rebuilds an exception raised by a remote component: the first component
  /// (in list order) that registered a prototype of that type creates it.
  /// "Unknown remote exception of type %type%!" when none did.
  qstd::tAutoPtr<qstd::cAbstractException> createRemoteException(const cComponentLocation& location,
                                                                 const qstd::cAsciiString& typeName,
                                                                 qsa::cAbstractDeserializer& d);

  /// The manager's internals, for the library's own classes.
  cModuleMgrImpl& impl() const { return *mpImpl; }

private:
  cModuleMgrImpl* mpImpl;
  const qce::cCoreExtensionMgr& mCoreExtensions;
};

}  // namespace qcs

#endif
