/// \class qpi::cAbstractClassLoader
/// Opens one module file, checks its exported sections and hands out the
/// module's component or plug-in instance. The platform factory creates the
/// platform's loader; the module and plug-in managers own loaders and delete
/// the ones no module uses any more.
///
/// Every instance handed out counts as one reference (incRef); a module gives
/// its reference back when it is destroyed, so a loader is unused once all of
/// its modules are gone, and the owner may then delete it. Instances must be
/// destroyed before their loader: their code lives in the file it keeps open.
#ifndef QELCORE_PI_CABSTRACTCLASSLOADER_H
#define QELCORE_PI_CABSTRACTCLASSLOADER_H

#include "qelcore/qelexport.h"
#include "qelcore/ucs/cstring.h"

namespace qsa {
class cReferenceFrame;
}
namespace qcs {
class cAbstractComponent;
class cAbstractPlugIn;
class cModuleMgr;
}  // namespace qcs

namespace qpi {

class QEL_EXPORT cAbstractClassLoader {
public:
  /// Unreferenced, for the module file `libFileName`.
  explicit cAbstractClassLoader(const qucs::cString& libFileName);
  cAbstractClassLoader(const cAbstractClassLoader&) = delete;
  cAbstractClassLoader& operator=(const cAbstractClassLoader&) = delete;
  virtual ~cAbstractClassLoader();

  /// The module's component, created for `mgr`, counted as a reference.
  virtual qcs::cAbstractComponent* instance(qsa::cReferenceFrame& frame, qcs::cModuleMgr& mgr) = 0;
  /// The module's plug-in, counted as a reference.
  virtual qcs::cAbstractPlugIn* instance(qsa::cReferenceFrame& frame) = 0;
  /// The module's own version.
  virtual void getModuleVersion(unsigned int& major, unsigned int& minor) const = 0;
  /// The version of this framework the module was built against.
  virtual void getModuleQELVersion(unsigned int& major, unsigned int& minor) const = 0;
  /// Whether the module has a component section (moduleInitComponent) or a
  /// plug-in section (moduleInitPlugIn), told without creating anything. A
  /// loader that cannot tell says true: instance() then gives the answer.
  virtual bool hasComponentSection() const;
  /// See hasComponentSection().
  virtual bool hasPlugInSection() const;

  /// One more instance of the module lives.
  void incRef() { ++miReferences; }
  /// Never below 0.
  void decRef() {
    if (miReferences) --miReferences;
  }
  /// How many instances of the module live.
  unsigned int numReferences() const { return miReferences; }
  /// None: the owner may delete the loader.
  bool isUnused() const { return miReferences == 0; }
  /// The module file, as given.
  const qucs::cString& libFileName() const { return mLibFileName; }

private:
  unsigned int miReferences;
  qucs::cString mLibFileName;
};

}  // namespace qpi

#endif
