/// \class qcs::cAbstractModule
/// What components and plug-ins have in common: they receive slot calls,
/// provide interfaces, carry a module description, and know the class loader
/// that created them (none for a module linked into the application).
#ifndef QELCORE_QCS_CABSTRACTMODULE_H
#define QELCORE_QCS_CABSTRACTMODULE_H

#include "qelcore/qcs/cabstractinterfaceprovider.h"
#include "qelcore/qcs/cmoduleinfo.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/cconnectable.h"

namespace qpi {
class cAbstractClassLoader;
}
namespace qsa {
class cAbstractDeserializer;
class cAbstractSerializer;
class cReferenceFrame;
}  // namespace qsa

namespace qcs {

class QEL_EXPORT cAbstractModule : public qrmi::cConnectable, public cAbstractInterfaceProvider {
public:
  cAbstractModule();
  /// For a module created by a class loader.
  explicit cAbstractModule(qsa::cReferenceFrame& frame);
  /// Gives the class loader's reference back (see cAbstractClassLoader).
  ~cAbstractModule() override;

  /// Whether the module is a plug-in (cAbstractPlugIn).
  virtual bool isPlugIn() const = 0;
  /// Whether the module is a component (cAbstractComponent).
  virtual bool isComponent() const = 0;
  ///@{
  /// Settings; nothing by default.
  virtual void loadSettings(qsa::cAbstractDeserializer& d);
  virtual void storeSettings(qsa::cAbstractSerializer& s) const;
  virtual void applySettings();
  ///@}

  ///@{
  /// The module's description: name, author, text, build, context.
  const cModuleInfo& moduleInfo() const { return mModuleInfo; }
  cModuleInfo& moduleInfo() { return mModuleInfo; }
  ///@}

  /// Records the loader that created this module (not owned) and writes the
  /// name under which the module was loaded into the module's context.
  void setClassLoader(qpi::cAbstractClassLoader* loader, const qstd::cAsciiString& name);
  /// The loader that created the module; null when linked in.
  qpi::cAbstractClassLoader* classLoader() const { return mpClassLoader; }
  /// No class loader: linked into the application.
  bool isStatic() const { return mpClassLoader == nullptr; }

private:
  cModuleInfo mModuleInfo;
  qpi::cAbstractClassLoader* mpClassLoader;
};

}  // namespace qcs

#endif
