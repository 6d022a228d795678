// Names of a POSIX system: "POSIX", shared libraries "lib<name>.so",
// programs without extension.
#ifndef QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXPLATFORMINFO_H
#define QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXPLATFORMINFO_H

#include "qelcore/pi/cabstractplatforminfo.h"

namespace qpi {

class cPosixPlatformInfo : public cAbstractPlatformInfo {
public:
  qstd::cAsciiString platformName() const override { return "POSIX"; }
  qstd::cAsciiString osSharedObjectFileExtension() const override { return ".so"; }
  qstd::cAsciiString osSharedObjectFilePrefix() const override { return "lib"; }
  qstd::cAsciiString osSharedObjectFileSuffix() const override { return qstd::cAsciiString(); }
  qstd::cAsciiString osAppFileExtension() const override { return qstd::cAsciiString(); }
};

}  // namespace qpi

#endif
