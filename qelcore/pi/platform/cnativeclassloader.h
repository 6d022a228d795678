// What the platforms' class loaders share: the library handle and the four
// sections of the opened module file, looked up and checked in the fixed
// order, then called. A platform supplies how a file is opened, a symbol
// found and the file closed (cLibraryCalls) and derives its loader from here.
#ifndef QELCORE_PI_PLATFORM_CNATIVECLASSLOADER_H
#define QELCORE_PI_PLATFORM_CNATIVECLASSLOADER_H

#include "qelcore/pi/cabstractclassloader.h"
#include "qelcore/qcs/cmodulesections.h"

namespace qpi {

class cNativeClassLoader : public cAbstractClassLoader {
public:
  struct cLibraryCalls {
    // Opens the file; throws cModuleLoadException eLoadFailed with the
    // system's error text when it cannot.
    void* (*open)(const qucs::cString& file);
    // The exported symbol, or null.
    void* (*symbol)(void* library, const char* name);
    void (*close)(void* library);
  };

  ~cNativeClassLoader() override;

  qcs::cAbstractComponent* instance(qsa::cReferenceFrame& frame, qcs::cModuleMgr& mgr) override;
  qcs::cAbstractPlugIn* instance(qsa::cReferenceFrame& frame) override;
  void getModuleVersion(unsigned int& major, unsigned int& minor) const override;
  void getModuleQELVersion(unsigned int& major, unsigned int& minor) const override;
  bool hasComponentSection() const override { return mpInitComponent != nullptr; }
  bool hasPlugInSection() const override { return mpInitPlugIn != nullptr; }

protected:
  // Loads and checks `file` at once; a failure throws cModuleLoadException
  // and leaves nothing open.
  cNativeClassLoader(const qucs::cString& file, const cLibraryCalls& calls);

  // Opens `file` in place of the library held and checks its sections: an
  // init section (either), moduleVersion, qelVersion; a missing one throws
  // cModuleLoadException eInvalidModule, and the library stays open until
  // unloadLibrary() or the destructor.
  void loadLibrary(const qucs::cString& file);
  void unloadLibrary();

private:
  const cLibraryCalls& mCalls;
  qcs::cModuleSections::tInitPlugIn mpInitPlugIn;
  qcs::cModuleSections::tInitComponent mpInitComponent;
  qcs::cModuleSections::tVersion mpModuleVersion;
  qcs::cModuleSections::tVersion mpQelVersion;
  void* mpLibrary;
};

}  // namespace qpi

#endif
