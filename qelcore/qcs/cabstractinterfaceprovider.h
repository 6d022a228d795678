/// \class qcs::cAbstractInterfaceProvider
/// Owns the list of an object's interfaces: every module (component or
/// plug-in) is one. The position in the list is an interface's index; every
/// search runs from index 0 upward and stops at the first hit.
///
/// \code
///   class cClock : public qcs::cAbstractComponent {
///   public:
///     explicit cClock(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr) {
///       addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cClockApi));
///     }
///   };
///   clock.findInterface("Clock");   // the cClockApi, or "No such interface" thrown
/// \endcode
///
/// No duplicate check is done when adding; removeInterface removes every
/// entry of that interface.
#ifndef QELCORE_QCS_CABSTRACTINTERFACEPROVIDER_H
#define QELCORE_QCS_CABSTRACTINTERFACEPROVIDER_H

#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tptrvector.h"

// A Windows header defines `interface` as a macro; it must not reach the
// declaration of interface() below.
#pragma push_macro("interface")
#undef interface

namespace qstd {
class cAsciiString;
template <typename T>
class tPtrList;
}  // namespace qstd
namespace qrmi {
class cConnectable;
}

namespace qcs {

class cAbstractInterface;
class cInterfaceDesc;
class cRegisteredInterface;

class QEL_EXPORT cAbstractInterfaceProvider {
public:
  /// Told whenever the list or the description of a listed interface changes.
  class QEL_EXPORT cWatch {
  public:
    virtual ~cWatch();
    /// Called after the change, with the provider that changed.
    virtual void interfacesChanged(cAbstractInterfaceProvider& provider) = 0;
  };

  cAbstractInterfaceProvider();
  cAbstractInterfaceProvider(const cAbstractInterfaceProvider&) = delete;
  cAbstractInterfaceProvider& operator=(const cAbstractInterfaceProvider&) = delete;
  /// Deletes the owned interfaces; the others are only let go.
  virtual ~cAbstractInterfaceProvider();

  /// How many interfaces are listed.
  unsigned int numInterfaces() const { return mInterfaces.size(); }
  /// The interface at `idx` (the list's own index check applies).
  const cAbstractInterface& interface(unsigned int idx) const;
  /// The interface at `idx`; an index out of range throws the range exception
  /// naming "cAbstractInterfaceProvider" and "getInterface".
  cAbstractInterface& getInterface(unsigned int idx);

  ///@{
  /// The first interface of that name, or null.
  const cAbstractInterface* tryFindInterface(const qstd::cAsciiString& name) const;
  cAbstractInterface* tryFindInterface(const qstd::cAsciiString& name);
  ///@}
  ///@{
  /// As tryFindInterface, but "No such interface (...)!" is thrown when none.
  const cAbstractInterface& findInterface(const qstd::cAsciiString& name) const;
  cAbstractInterface& findInterface(const qstd::cAsciiString& name);
  ///@}
  ///@{
  /// The interface that is that very object: thrown "No public interface!"
  /// when it is not listed, or null.
  const cAbstractInterface& findInterface(const qrmi::cConnectable& object) const;
  const cAbstractInterface* hasInterface(const qrmi::cConnectable& object) const;
  ///@}
  ///@{
  /// The first interface that matches `desc` (cAbstractInterface::matches), or
  /// null; getMatchingInterface throws "No such interface" with desc's name.
  const cAbstractInterface* hasMatchingInterface(const cInterfaceDesc& desc) const;
  cAbstractInterface* hasMatchingInterface(const cInterfaceDesc& desc);
  const cAbstractInterface& getMatchingInterface(const cInterfaceDesc& desc) const;
  ///@}
  /// A new list of the interfaces in index order (the list does not own them).
  qstd::tAutoPtr<qstd::tPtrList<cAbstractInterface>> interfaces() const;

  /// At most one watch; null removes it.
  void setWatch(cWatch* watch) { mpWatch = watch; }

protected:
  ///@{
  /// Append an entry at the end and return the interface: not owned / owned.
  virtual cAbstractInterface& addInterface(cAbstractInterface& iface);
  virtual cAbstractInterface& addInterface(qstd::tAutoPtr<cAbstractInterface> iface);
  ///@}
  /// Removes every entry of that interface (deleting it when owned).
  virtual void removeInterface(cAbstractInterface& iface);

private:
  friend class cAbstractInterface;
  friend class cRegisteredInterface;
  cAbstractInterface& append(cRegisteredInterface* entry);
  /// An interface listed here is dying: drop its entries without deleting it.
  void forget(cAbstractInterface& iface);
  void notifyWatch();

  qstd::tPtrVector<cRegisteredInterface> mInterfaces;
  cWatch* mpWatch;
};

}  // namespace qcs

#pragma pop_macro("interface")

#endif
