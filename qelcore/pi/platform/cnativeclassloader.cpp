#include "qelcore/pi/platform/cnativeclassloader.h"

#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

// Symbols come back as data pointers; the sections are functions.
template <typename F>
F entry(const cNativeClassLoader::cLibraryCalls& calls, void* library, const char* name) {
  return reinterpret_cast<F>(calls.symbol(library, name));
}

}  // namespace

cNativeClassLoader::cNativeClassLoader(const qucs::cString& file, const cLibraryCalls& calls)
    : cAbstractClassLoader(file),
      mCalls(calls),
      mpInitPlugIn(nullptr),
      mpInitComponent(nullptr),
      mpModuleVersion(nullptr),
      mpQelVersion(nullptr),
      mpLibrary(nullptr) {
  try {
    loadLibrary(file);
  } catch (...) {
    unloadLibrary();
    throw;
  }
}

cNativeClassLoader::~cNativeClassLoader() { unloadLibrary(); }

void cNativeClassLoader::loadLibrary(const qucs::cString& file) {
  typedef qcs::cModuleSections tSections;
  unloadLibrary();
  mpLibrary = mCalls.open(file);
  mpInitPlugIn = entry<tSections::tInitPlugIn>(mCalls, mpLibrary, tSections::initPlugIn);
  mpInitComponent = entry<tSections::tInitComponent>(mCalls, mpLibrary, tSections::initComponent);
  if (!mpInitPlugIn && !mpInitComponent) qcs::cQCSExceptions::throwMissingSection(file, "moduleInit");
  mpModuleVersion = entry<tSections::tVersion>(mCalls, mpLibrary, tSections::moduleVersion);
  if (!mpModuleVersion) qcs::cQCSExceptions::throwMissingSection(file, "moduleVersion");
  mpQelVersion = entry<tSections::tVersion>(mCalls, mpLibrary, tSections::qelVersion);
  if (!mpQelVersion) qcs::cQCSExceptions::throwMissingSection(file, "qelVersion");
}

void cNativeClassLoader::unloadLibrary() {
  mpInitPlugIn = nullptr;
  mpInitComponent = nullptr;
  mpModuleVersion = nullptr;
  mpQelVersion = nullptr;
  if (!mpLibrary) return;
  mCalls.close(mpLibrary);
  mpLibrary = nullptr;
}

qcs::cAbstractComponent* cNativeClassLoader::instance(qsa::cReferenceFrame& frame, qcs::cModuleMgr& mgr) {
  if (!mpInitComponent) qcs::cQCSExceptions::throwNoComponent(libFileName());
  qcs::cAbstractComponent* result = nullptr;
  mpInitComponent(&result, mgr, frame);
  if (!result) qcs::cQCSExceptions::throwNoComponentInstance(libFileName());
  incRef();
  return result;
}

qcs::cAbstractPlugIn* cNativeClassLoader::instance(qsa::cReferenceFrame& frame) {
  if (!mpInitPlugIn) qcs::cQCSExceptions::throwNotAPlugIn(libFileName());
  qcs::cAbstractPlugIn* result = nullptr;
  mpInitPlugIn(&result, frame);
  if (!result) qcs::cQCSExceptions::throwNoPlugInInstance(libFileName());
  incRef();
  return result;
}

void cNativeClassLoader::getModuleVersion(unsigned int& major, unsigned int& minor) const {
  if (mpModuleVersion) mpModuleVersion(major, minor);
}

void cNativeClassLoader::getModuleQELVersion(unsigned int& major, unsigned int& minor) const {
  if (mpQelVersion) mpQelVersion(major, minor);
}

}  // namespace qpi
