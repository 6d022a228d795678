// The core extensions of a process, in the order they were added. The module
// manager is built over one and hands it out.
//
//   qce::cCoreExtensionMgr extensions;
//   extensions.add(qstd::tAutoPtr<qce::cAbstractCoreExtension>(new cMyAddressExtension));
//   qcs::cModuleMgr mgr(extensions);
//
// This is the manager's list and add(); loading plug-in modules, the
// look-ups by kind and the creators come with the module support.
#ifndef QELCORE_QCE_CCOREEXTENSIONMGR_H
#define QELCORE_QCE_CCOREEXTENSIONMGR_H

#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qce/cextensionpair.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tptrlist.h"

namespace qce {

class QEL_EXPORT cCoreExtensionMgr {
public:
  typedef qstd::tPtrList<cExtensionPair> tExtensions;

  cCoreExtensionMgr();
  cCoreExtensionMgr(const cCoreExtensionMgr&) = delete;
  cCoreExtensionMgr& operator=(const cCoreExtensionMgr&) = delete;
  virtual ~cCoreExtensionMgr();

  // Appends an entry owning the extension.
  void add(qstd::tAutoPtr<cAbstractCoreExtension> extension);
  // The entries in insertion order.
  const tExtensions& extensions() const { return mExtensions; }
  // Empties the list, deleting what the entries own.
  void clear() { mExtensions.clear(); }

private:
  tExtensions mExtensions;
};

}  // namespace qce

#endif
