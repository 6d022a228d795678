// The class loader of POSIX systems: dlopen, dlsym and dlclose. The file name
// is passed as given (UTF-8): a name without '/' is searched where the
// dynamic linker searches, any other is taken relative to the working
// directory. A file that cannot be loaded gives dlerror()'s text.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXCLASSLOADER_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXCLASSLOADER_H

#include "qelcore/pi/platform/cnativeclassloader.h"

namespace qpi {

class cPosixClassLoader : public cNativeClassLoader {
public:
  explicit cPosixClassLoader(const qucs::cString& file);
};

}  // namespace qpi

#endif
