/// \class qcs::cPlugInGuard
/// Owns one loaded plug-in together with the class loader of its file. The
/// plug-in is destroyed before its loader closes the file that holds the
/// plug-in's code; a plug-in linked into the program (no class loader) is
/// just deleted.
///
/// \code
///   qstd::tAutoPtr<qcs::cPlugInGuard> guard(qcs::cPlugInGuard::open("plugins/libcodec.so", frame));
///   qstd::cAsciiString type = guard->pluginTypeName();
/// \endcode
#ifndef QELCORE_QCS_CPLUGINGUARD_H
#define QELCORE_QCS_CPLUGINGUARD_H

#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qucs {
class cString;
}

namespace qcs {

class QEL_EXPORT cPlugInGuard {
public:
  /// Owns `plugIn`, and with it its class loader.
  explicit cPlugInGuard(qstd::tAutoPtr<cAbstractPlugIn> plugIn);
  cPlugInGuard(const cPlugInGuard&) = delete;
  cPlugInGuard& operator=(const cPlugInGuard&) = delete;
  /// Deletes the plug-in, then its class loader.
  ~cPlugInGuard();

  /// The plug-in.
  cAbstractPlugIn& plugIn() const { return *mpPlugIn; }
  /// The plug-in's members.
  cAbstractPlugIn* operator->() const { return mpPlugIn; }

  /// Opens the module file `fileName` (as given) through the platform's class
  /// loader, lets it create the plug-in with `frame` and records loader and
  /// name in the plug-in. A module built against another major version of
  /// the library gets a warning on the debug output naming both versions.
  /// Errors of the class loader come unchanged; nothing stays open.
  static qstd::tAutoPtr<cPlugInGuard> open(const qucs::cString& fileName, qsa::cReferenceFrame& frame);

private:
  cAbstractPlugIn* mpPlugIn;
};

}  // namespace qcs

#endif
