// Names on Windows: "Win32", shared libraries "<name>.dll", programs ".exe".
#ifndef QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32PLATFORMINFO_H
#define QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32PLATFORMINFO_H

#include "qelcore/pi/cabstractplatforminfo.h"

namespace qpi {

class cWin32PlatformInfo : public cAbstractPlatformInfo {
public:
  qstd::cAsciiString platformName() const override { return "Win32"; }
  qstd::cAsciiString osSharedObjectFileExtension() const override { return ".dll"; }
  qstd::cAsciiString osSharedObjectFilePrefix() const override { return qstd::cAsciiString(); }
  qstd::cAsciiString osSharedObjectFileSuffix() const override { return qstd::cAsciiString(); }
  qstd::cAsciiString osAppFileExtension() const override { return ".exe"; }
};

}  // namespace qpi

#endif
