// The class loader of Windows: LoadLibraryW, GetProcAddress and FreeLibrary.
// The file name is passed as given (UTF-16): no extension is added and the
// system's own search order applies. A file that cannot be loaded gives the
// system's error code and text: (126): "The specified module could not be
// found.".
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32CLASSLOADER_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32CLASSLOADER_H

#include "qelcore/pi/platform/cnativeclassloader.h"

namespace qpi {

class cWin32ClassLoader : public cNativeClassLoader {
public:
  explicit cWin32ClassLoader(const qucs::cString& file);
};

}  // namespace qpi

#endif
