#include "qelcore/qcs/cpluginguard.h"

#include "qelcore/pi/cabstractclassloader.h"
#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/qelversion.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qcs {

namespace {

void warnOnOtherMajorVersion(const qpi::cAbstractClassLoader& loader) {
  unsigned int major = QELCORE_VERSION_MAJOR, minor = QELCORE_VERSION_MINOR;
  loader.getModuleQELVersion(major, minor);
  if (major == QELCORE_VERSION_MAJOR) return;
  qstd::cAsciiString text("Module ");
  text += loader.libFileName().ascii();
  text += " was built against QELCore ";
  text.addUNum32(major) += '.';
  text.addUNum32(minor) += "; this is QELCore ";
  text.addUNum32(QELCORE_VERSION_MAJOR) += '.';
  text.addUNum32(QELCORE_VERSION_MINOR) += '.';
  qpi::cAbstractOut::current().write(qpi::cAbstractOut::LevelWarning, text.c_str(), __FILE__, __LINE__);
}

}  // namespace

cPlugInGuard::cPlugInGuard(qstd::tAutoPtr<cAbstractPlugIn> plugIn) : mpPlugIn(plugIn.release()) {
  QEL_ASSERT(mpPlugIn != nullptr, "qcs/cpluginguard");
}

cPlugInGuard::~cPlugInGuard() {
  // The plug-in's code lives in the file its loader keeps open.
  qpi::cAbstractClassLoader* loader = mpPlugIn ? mpPlugIn->classLoader() : nullptr;
  delete mpPlugIn;
  delete loader;
}

qstd::tAutoPtr<cPlugInGuard> cPlugInGuard::open(const qucs::cString& fileName, qsa::cReferenceFrame& frame) {
  qstd::tAutoPtr<qpi::cAbstractClassLoader> loader(qpi::cPlatform::createClassLoader(fileName));
  warnOnOtherMajorVersion(*loader);
  qstd::tAutoPtr<cPlugInGuard> guard(new cPlugInGuard(qstd::tAutoPtr<cAbstractPlugIn>(loader->instance(frame))));
  guard->plugIn().setClassLoader(loader.release(), fileName.ascii());
  return guard;
}

}  // namespace qcs
