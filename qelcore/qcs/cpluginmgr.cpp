#include "qelcore/qcs/cpluginmgr.h"

#include <utility>

#include "qelcore/sa/creferenceframe.h"

namespace qcs {

cPlugInMgr::cPlugInMgr() {}

cPlugInMgr::cPlugInMgr(cPlugInMgr& other) : mPlugIns(std::move(other.mPlugIns)) {}

cPlugInMgr& cPlugInMgr::operator=(cPlugInMgr& other) {
  if (this != &other) {
    unloadAll();
    mPlugIns = std::move(other.mPlugIns);
  }
  return *this;
}

cPlugInMgr::~cPlugInMgr() { unloadAll(); }

qstd::tAutoPtr<cPlugInGuard> cPlugInMgr::loadPlugIn(const qucs::cString& fileName, qsa::cReferenceFrame& frame) {
  return cPlugInGuard::open(fileName, frame);
}

qstd::tAutoPtr<cPlugInGuard> cPlugInMgr::loadPlugIn(const qucs::cString& fileName) {
  qsa::cReferenceFrame frame;
  return cPlugInGuard::open(fileName, frame);
}

void cPlugInMgr::registerPlugIn(qstd::tAutoPtr<cPlugInGuard> guard) {
  if (guard) mPlugIns.append(guard);
}

void cPlugInMgr::unloadPlugIn(cAbstractPlugIn* plugIn) {
  for (tPlugIns::iterator it = mPlugIns.begin(); it != mPlugIns.end(); ++it)
    if (&(*it)->plugIn() == plugIn) {
      mPlugIns.erase(it);
      return;
    }
}

void cPlugInMgr::unloadAll() {
  // A plug-in registered later may use one registered earlier.
  while (!mPlugIns.empty()) mPlugIns.remove(mPlugIns.last());
}

}  // namespace qcs
