/// \class qcs::cInterfaceDep
/// A component's need for another component's interface. The dependency names
/// the wanted interface (a description of the requiring side), picks a
/// provider by its selection algorithm, binds its own local interface to the
/// provider's matching interface and tells listeners by sigMatched.
///
/// \code
///   class cAlarm : public qcs::cAbstractComponent {
///   public:
///     explicit cAlarm(qcs::cModuleMgr& mgr)
///         : cAbstractComponent(mgr),
///           mClock(*this, mClockUse.desc(), &mClockUse, qcs::cInterfaceDep::saUseFirstBest) {}
///   private:
///     cClockUse mClockUse;     // the local interface (a cAbstractInterface)
///     qcs::cInterfaceDep mClock;
///   };
/// \endcode
///
/// First-best takes the first component, in the manager's list order, that
/// offers an interface of that name on the other side (at an allowed host),
/// and keeps it; explicit binds only to the component given to setExplicit().
/// When the matched component is removed the match becomes invalid at once;
/// the binding is withdrawn (local interface disconnected, sigUnmatched) in
/// the owner's next recalculation, where first-best then looks for another
/// provider. A dependency without owner is recalculated only by recalc().
#ifndef QELCORE_QCS_CINTERFACEDEP_H
#define QELCORE_QCS_CINTERFACEDEP_H

#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qcs/cinterfacedesc.h"
#include "qelcore/qcs/cmatcheddependency.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/tlist.h"

namespace qcs {

class cAbstractComponent;
class cAbstractInterface;
class cModuleMgr;
class cModuleMgrImpl;
namespace detail {
class cDependencyGroup;
struct cDependencyEntry;
}  // namespace detail

class QEL_EXPORT cInterfaceDep : public qrmi::cConnectable {
public:
  /// How a dependency picks its provider.
  enum selectionAlgo : unsigned int {
    saUseExplicit = 0,     ///< bound by setExplicit() only
    saUseFirstBest = 1,    ///< the first matching component in list order, kept
    saUseInteractive = 2,  ///< not supported: every recalculation throws
  };

  /// Emitted with the matched component's address when a match is made.
  qrmi::localSignal1<qsa::piVoid, const cComponentAddr&> sigMatched;
  /// Emitted when a match is withdrawn.
  qrmi::localSignal0<qsa::piVoid> sigUnmatched;

  /// Registers with the owner (last), which schedules its recalculation.
  cInterfaceDep(cAbstractComponent& owner, const cInterfaceDesc& desc, cAbstractInterface* localInterface,
                selectionAlgo algorithm);
  /// Without owner.
  cInterfaceDep(cModuleMgr& mgr, const cInterfaceDesc& desc, cAbstractInterface* localInterface,
                selectionAlgo algorithm);
  ~cInterfaceDep() override;

  /// Only components on the hosts of these locations are matched (when there
  /// is any). Only the predictable form exists: `predictable` false throws the
  /// unsupported-operation exception "cInterfaceDep::addPossibleLocation(useUnpredictable)".
  void addPossibleLocation(const cComponentLocation& location, bool predictable);
  /// Withdraws any match, then binds to the component at `location` if it
  /// offers a matching interface (without consulting possible or excluded
  /// locations). "Module (...) not found!" when no component is there.
  void setExplicit(const cComponentLocation& location);
  /// Recalculates against every component of the manager, in list order.
  void recalc();

  /// Bound to a provider. It stays true after the provider went, until the owner's next recalculation; match().valid() tells at once.
  bool matched() const { return miState == 1; }
  /// The matched component's address; "Unmatched interface!" without a valid match.
  const cComponentAddr& address() const;

  /// The wanted interface.
  const cInterfaceDesc& desc() const { return mDesc; }
  /// How the provider is picked.
  selectionAlgo algorithm() const { return meAlgorithm; }
  /// The component that owns the dependency; null for one made on the manager.
  cAbstractComponent* owner() const { return mpOwner; }
  /// The interface bound to the provider's; may be null.
  cAbstractInterface* localInterface() const { return mpLocalInterface; }
  /// Where the matched component is, and whether the match holds.
  const cMatchedDependency& match() const { return mMatch; }
  /// The locations added with addPossibleLocation().
  const qstd::tList<cComponentLocation>& possibleLocations() const { return mPossibleLocations; }
  ///@{
  /// Components at exactly one of these locations are never matched. The
  /// dependency only reads the list; its user fills it.
  const qstd::tList<cComponentLocation>& excludedLocations() const { return mExcludedLocations; }
  qstd::tList<cComponentLocation>& excludedLocations() { return mExcludedLocations; }
  ///@}

private:
  friend class cAbstractComponent;
  friend class cModuleMgrImpl;
  friend class detail::cDependencyGroup;

  cInterfaceDep(cAbstractComponent* owner, cModuleMgr& mgr, const cInterfaceDesc& desc,
                cAbstractInterface* localInterface, selectionAlgo algorithm);
  qsa::piVoid sltComponentRegistered(cAbstractComponent& c);
  qsa::piVoid sltComponentRemoved(cAbstractComponent& c);
  void recalc(cAbstractComponent& c);
  void recalcUseExcplicit(cAbstractComponent& c);
  void recalcUseFirstBest(cAbstractComponent& c);
  void recalcUseInteractive(cAbstractComponent& c);
  cAbstractInterface* hasMatchingInterface(cAbstractComponent& c) const;
  cAbstractInterface* hasPotentialyMatchingInterface(cAbstractComponent& c) const;
  bool validateMatch(const cMatchedDependency& m);
  void invalidateMatch();
  void bindMatch(cAbstractInterface& provided, cAbstractComponent& c);
  /// Tells the manager's index that state or match changed.
  void stateChanged();
  cModuleMgrImpl& managerImpl() const;

  cAbstractComponent* mpOwner;  ///< null once the owner is gone
  cModuleMgr* mpModuleMgr;      ///< null once the manager is gone
  cInterfaceDesc mDesc;
  qstd::tList<cComponentLocation> mPossibleLocations;
  qstd::tList<cComponentLocation> mExcludedLocations;
  selectionAlgo meAlgorithm;
  unsigned int miState;
  cMatchedDependency mMatch;
  cAbstractInterface* mpLocalInterface;
  /// The manager's bookkeeping for this dependency.
  detail::cDependencyEntry* mpEntry;
};

}  // namespace qcs

#endif
