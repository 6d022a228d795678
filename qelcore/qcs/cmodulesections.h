/// \struct qcs::cModuleSections
/// The entry points of a module file: plain C symbols that a class loader
/// looks up by name. A module exports moduleVersion and qelVersion, and
/// moduleInitComponent, moduleInitPlugIn or both. Declare them with the
/// macros below, once per module, in one source file:
///
/// \code
///   #include "qelcore/qcs/cmodulesections.h"
/// \endcode
///
/// \code
///   class cAudio : public qcs::cAbstractComponent {
///   public:
///     cAudio(qcs::cModuleMgr& mgr, qsa::cReferenceFrame& frame) : cAbstractComponent(mgr, frame) {}
///   };
/// \endcode
///
/// \code
///   QEL_MODULE_VERSION(2, 1)        // moduleVersion 2.1; qelVersion: this library's version
///   QEL_MODULE_COMPONENT(cAudio)    // moduleInitComponent: new cAudio(mgr, frame)
///   QEL_MODULE_PLUGIN(cAudioCodec)  // moduleInitPlugIn: new cAudioCodec(frame)
/// \endcode
///
/// A module that needs more than a constructor call writes the function
/// itself with the prototype below (QEL_MODULE_SECTION marks it exported with
/// C linkage) and stores its instance, or null, in *result:
///
/// \code
///   QEL_MODULE_SECTION void moduleInitPlugIn(qcs::cAbstractPlugIn** result, qsa::cReferenceFrame& frame) {
///     *result = settingsFound() ? new cAudioCodec(frame) : nullptr;
///   }
/// \endcode
///
/// An exception thrown by a constructor reaches the caller of the loader.
#ifndef QELCORE_QCS_CMODULESECTIONS_H
#define QELCORE_QCS_CMODULESECTIONS_H

#include "qelcore/qelversion.h"

namespace qsa {
class cReferenceFrame;
}
namespace qcs {
class cAbstractComponent;
class cAbstractPlugIn;
class cModuleMgr;
}  // namespace qcs

#if defined(_WIN32)
#define QEL_MODULE_SECTION extern "C" __declspec(dllexport)
#else
#define QEL_MODULE_SECTION extern "C" __attribute__((visibility("default")))
#endif

extern "C" {
typedef void (*tQelModuleInitComponent)(qcs::cAbstractComponent** result, qcs::cModuleMgr& mgr,
                                        qsa::cReferenceFrame& frame);
typedef void (*tQelModuleInitPlugIn)(qcs::cAbstractPlugIn** result, qsa::cReferenceFrame& frame);
typedef void (*tQelModuleVersion)(unsigned int& major, unsigned int& minor);
}

namespace qcs {

/// The sections' types and the names they are exported under.
struct cModuleSections {
  /// moduleInitComponent(result, mgr, frame): stores a new component, or null, in *result.
  typedef tQelModuleInitComponent tInitComponent;
  /// moduleInitPlugIn(result, frame): stores a new plug-in, or null, in *result.
  typedef tQelModuleInitPlugIn tInitPlugIn;
  /// moduleVersion and qelVersion: write major and minor.
  typedef tQelModuleVersion tVersion;

  ///@{
  static constexpr const char* initComponent = "moduleInitComponent";  ///< the exported names
  static constexpr const char* initPlugIn = "moduleInitPlugIn";
  static constexpr const char* moduleVersion = "moduleVersion";
  static constexpr const char* qelVersion = "qelVersion";
  ///@}
};

}  // namespace qcs

// moduleVersion reports major.minor; qelVersion the library version the
// module is compiled against.
#define QEL_MODULE_VERSION(major, minor)                                    \
  QEL_MODULE_SECTION void moduleVersion(unsigned int& ma, unsigned int& mi) { \
    ma = (major);                                                           \
    mi = (minor);                                                           \
  }                                                                         \
  QEL_MODULE_SECTION void qelVersion(unsigned int& ma, unsigned int& mi) {    \
    ma = QELCORE_VERSION_MAJOR;                                             \
    mi = QELCORE_VERSION_MINOR;                                             \
  }

// moduleInitComponent creating `type` from (cModuleMgr&, cReferenceFrame&).
#define QEL_MODULE_COMPONENT(type)                                                                    \
  QEL_MODULE_SECTION void moduleInitComponent(qcs::cAbstractComponent** result, qcs::cModuleMgr& mgr, \
                                              qsa::cReferenceFrame& frame) {                          \
    *result = new type(mgr, frame);                                                                   \
  }

// moduleInitPlugIn creating `type` from (cReferenceFrame&).
#define QEL_MODULE_PLUGIN(type)                                                                       \
  QEL_MODULE_SECTION void moduleInitPlugIn(qcs::cAbstractPlugIn** result, qsa::cReferenceFrame& frame) { \
    *result = new type(frame);                                                                        \
  }

#endif
