#include "qelcore/pi/platform/dependend/native_win32/cwin32classloader.h"

#include <windows.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

// UTF-16, NUL-terminated; characters beyond the basic plane as surrogate pairs.
qstd::tArray<wchar_t> utf16(const qucs::cString& text) {
  qstd::tArray<wchar_t> out;
  for (unsigned int c : text) {
    if (c >= 0x10000 && c <= 0x10FFFF) {
      out.append(static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10)));
      out.append(static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    } else {
      out.append(static_cast<wchar_t>(c > 0x10FFFF ? 0xFFFD : c));
    }
  }
  out.append(L'\0');
  return out;
}

void* openLibrary(const qucs::cString& file) {
  const qstd::tArray<wchar_t> name = utf16(file);
  HMODULE library = ::LoadLibraryW(name.data());
  if (!library) {
    const int code = static_cast<int>(::GetLastError());
    qstd::cAsciiString error("(");
    error.addNum32(code);
    error += "): \"";
    error += cPlatform::osFileIOErrorString(code);
    error += "\"";
    qcs::cQCSExceptions::throwModuleLoadFailed(file, error);
  }
  return library;
}

void* findSymbol(void* library, const char* name) {
  return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(library), name));
}

void closeLibrary(void* library) { ::FreeLibrary(static_cast<HMODULE>(library)); }

const cNativeClassLoader::cLibraryCalls gCalls = {&openLibrary, &findSymbol, &closeLibrary};

}  // namespace

cWin32ClassLoader::cWin32ClassLoader(const qucs::cString& file) : cNativeClassLoader(file, gCalls) {}

}  // namespace qpi
