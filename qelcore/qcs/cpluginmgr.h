/// \class qcs::cPlugInMgr
/// A list of loaded plug-ins, each owned by its guard, in registration order.
///
/// \code
///   qcs::cPlugInMgr plugIns;
///   plugIns.registerPlugIn(plugIns.loadPlugIn("plugins/libcodec.so"));
///   ...
///   plugIns.unloadAll();        // each plug-in before its module file
/// \endcode
///
/// Copying hands the guards over to the copy (as tAutoPtr does): a loaded
/// module has exactly one owner.
#ifndef QELCORE_QCS_CPLUGINMGR_H
#define QELCORE_QCS_CPLUGINMGR_H

#include "qelcore/qcs/cpluginguard.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tptrlist.h"

namespace qcs {

class QEL_EXPORT cPlugInMgr {
public:
  /// The guards, in registration order.
  typedef qstd::tPtrList<cPlugInGuard> tPlugIns;

  cPlugInMgr();
  /// Takes over the plug-ins of `other`, which is left empty.
  cPlugInMgr(cPlugInMgr& other);
  /// Unloads this manager's plug-ins and takes over those of `other`.
  cPlugInMgr& operator=(cPlugInMgr& other);
  /// Unloads all.
  virtual ~cPlugInMgr();

  ///@{
  /// Opens the module file (as given) and creates its plug-in with `frame`
  /// (with a fresh frame in the second form); see cPlugInGuard::open. The
  /// plug-in is not listed yet.
  qstd::tAutoPtr<cPlugInGuard> loadPlugIn(const qucs::cString& fileName, qsa::cReferenceFrame& frame);
  qstd::tAutoPtr<cPlugInGuard> loadPlugIn(const qucs::cString& fileName);
  ///@}
  /// Appends the guard.
  void registerPlugIn(qstd::tAutoPtr<cPlugInGuard> guard);
  /// Destroys the guard of that plug-in; nothing happens when it is not listed.
  void unloadPlugIn(cAbstractPlugIn* plugIn);
  /// Destroys all guards, the last registered first.
  void unloadAll();

  /// The loaded plug-ins.
  const tPlugIns& plugIns() const { return mPlugIns; }

private:
  tPlugIns mPlugIns;
};

}  // namespace qcs

#endif
