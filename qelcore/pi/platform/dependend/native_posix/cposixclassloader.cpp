#include "qelcore/pi/platform/dependend/native_posix/cposixclassloader.h"

#include <dlfcn.h>

#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

void* openLibrary(const qucs::cString& file) {
  qstd::tArray<char> name = file.toUTF8();
  name.append('\0');
  // Symbols stay local to the module: two modules may define the same names.
  void* library = ::dlopen(name.data(), RTLD_NOW | RTLD_LOCAL);
  if (!library) {
    const char* error = ::dlerror();
    qcs::cQCSExceptions::throwModuleLoadFailed(file, error ? error : "Unable to get error string!");
  }
  return library;
}

void* findSymbol(void* library, const char* name) { return ::dlsym(library, name); }

void closeLibrary(void* library) { ::dlclose(library); }

const cNativeClassLoader::cLibraryCalls gCalls = {&openLibrary, &findSymbol, &closeLibrary};

}  // namespace

cPosixClassLoader::cPosixClassLoader(const qucs::cString& file) : cNativeClassLoader(file, gCalls) {}

}  // namespace qpi
