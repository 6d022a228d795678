/// \class qcs::cAbstractPlugIn
/// A module without component identity that adds functionality to the
/// process, most often a core extension. Plug-ins live in module files and are
/// created by a class loader (moduleInitPlugIn, see cmodulesections.h):
///
/// \code
///   class cCodecPlugIn : public qcs::cAbstractPlugIn {
///   public:
///     explicit cCodecPlugIn(qsa::cReferenceFrame& frame) : cAbstractPlugIn(frame) {}
///     bool isCoreExtension() const override { return true; }
///     const qce::cAbstractCoreExtension& coreExtension() const override { return mExtension; }
///     qstd::cAsciiString pluginTypeName() override { return "codec"; }
///   private:
///     cCodecExtension mExtension;
///   };
///   QEL_MODULE_VERSION(1, 0)
///   QEL_MODULE_PLUGIN(cCodecPlugIn)
/// \endcode
#ifndef QELCORE_QCS_CABSTRACTPLUGIN_H
#define QELCORE_QCS_CABSTRACTPLUGIN_H

#include "qelcore/qcs/cabstractmodule.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qce {
class cAbstractCoreExtension;
}

namespace qcs {

class QEL_EXPORT cAbstractPlugIn : public cAbstractModule {
public:
  /// Plug-ins are created by a class loader, with its reference frame.
  explicit cAbstractPlugIn(qsa::cReferenceFrame& frame);
  ~cAbstractPlugIn() override;

  /// True.
  bool isPlugIn() const override { return true; }
  /// False.
  bool isComponent() const override { return false; }
  /// Whether coreExtension() gives one; false by default.
  virtual bool isCoreExtension() const;
  /// By default: runtime exception "Module ("%name%") does not provide core
  /// extension functionality." with the module's name.
  virtual const qce::cAbstractCoreExtension& coreExtension() const;
  /// "none" by default.
  virtual qstd::cAsciiString pluginTypeName();
};

}  // namespace qcs

#endif
