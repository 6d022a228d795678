// The library's own core extensions, which the system object's manager gets
// at start (see cCoreExtensionMgr for the type names).
#ifndef QELCORE_QCE_DETAIL_BUILTINEXTENSIONS_H
#define QELCORE_QCE_DETAIL_BUILTINEXTENSIONS_H

namespace qce {

class cCoreExtensionMgr;

void addBuiltinExtensions(cCoreExtensionMgr& mgr);

}  // namespace qce

#endif
