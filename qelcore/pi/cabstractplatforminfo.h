/// \class qpi::cAbstractPlatformInfo
/// Names that differ between platforms: the platform's name and how shared
/// libraries and programs are named there.
///
/// \code
///   qstd::tAutoPtr<qpi::cAbstractPlatformInfo> info(qpi::cPlatform::createPlatformInfo());
///   qucs::cString module("plugins/netio");
///   info->osSpecificSOName(module);   // "plugins/libnetio.so" on Linux,
///                                     // "plugins/netio.dll" on Windows
/// \endcode
#ifndef QELCORE_PI_CABSTRACTPLATFORMINFO_H
#define QELCORE_PI_CABSTRACTPLATFORMINFO_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qucs {
class cString;
}

namespace qpi {

class QEL_EXPORT cAbstractPlatformInfo {
public:
  cAbstractPlatformInfo() {}
  cAbstractPlatformInfo(const cAbstractPlatformInfo&) = delete;
  cAbstractPlatformInfo& operator=(const cAbstractPlatformInfo&) = delete;
  virtual ~cAbstractPlatformInfo();

  /// "Win32" or "POSIX".
  virtual qstd::cAsciiString platformName() const = 0;
  /// Turns a module's base name into the platform's file name for it through
  /// the name setters of qio::cFileInfo: the last path component gets the
  /// library prefix and suffix (unless it has them already), and its
  /// extension (see qio::cPath::extension) is replaced by the library
  /// extension. The directory part is kept as it is.
  virtual void osSpecificSOName(qucs::cString& name) const;
  /// ".dll" on Windows, ".so" on POSIX systems.
  virtual qstd::cAsciiString osSharedObjectFileExtension() const = 0;
  /// Empty on Windows, "lib" on POSIX systems.
  virtual qstd::cAsciiString osSharedObjectFilePrefix() const = 0;
  /// What follows the base name before the extension; empty on both.
  virtual qstd::cAsciiString osSharedObjectFileSuffix() const = 0;
  /// ".exe" on Windows, empty on POSIX systems.
  virtual qstd::cAsciiString osAppFileExtension() const = 0;
};

}  // namespace qpi

#endif
