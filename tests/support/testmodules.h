// The module files the test build makes from tests/support/modules/: their
// full file names, as the platform names module files.
#ifndef QELCORE_TESTS_SUPPORT_TESTMODULES_H
#define QELCORE_TESTS_SUPPORT_TESTMODULES_H

#include "qelcore/pi/cabstractplatforminfo.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/ucs/cstring.h"

namespace qeltest {

// The directory of the test modules.
inline qucs::cString testModuleDir() { return qucs::cString(QELTEST_MODULE_DIR); }

// "component" -> ".../testmodules/libcomponent.so" or "...\component.dll".
inline qucs::cString testModule(const char* name) {
  qucs::cString file = testModuleDir() + "/" + name;
  qpi::cPlatform::createPlatformInfo()->osSpecificSOName(file);
  return file;
}

}  // namespace qeltest

#endif
