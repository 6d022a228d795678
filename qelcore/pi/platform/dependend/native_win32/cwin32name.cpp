#include "qelcore/pi/platform/dependend/native_win32/cwin32name.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "qelcore/io/cioexceptions.h"
#include "qelcore/io/cpath.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

// Beyond this many characters an absolute path needs the long-path prefix
// (CreateDirectoryW's limit is the lowest).
const unsigned int kClassicLimit = 240;

}  // namespace

cWin32Name::cWin32Name(const qio::cPath& path, const char* operation, const char* suffix)
    : mpName(maStack), miLength(0) {
  const unsigned int suffixLength = suffix ? static_cast<unsigned int>(std::strlen(suffix)) : 0;
  qio::cPath source = path;
  const wchar_t* prefix = L"";
  unsigned int skip = 0;  // characters of the generic form replaced by the prefix
  if (path.isAbsolute() && path.toString().size() + suffixLength > kClassicLimit) {
    source = path.normalised();
    if (source.rootName().size() > 2) {
      prefix = L"\\\\?\\UNC";  // "//server/share" keeps one of its slashes
      skip = 1;
    } else {
      prefix = L"\\\\?\\";
    }
  }
  const qucs::cString& text = source.toString();
  const unsigned int n = text.size();
  const unsigned int prefixLength = static_cast<unsigned int>(std::wcslen(prefix));
  const unsigned long long need = 2ull * n + prefixLength + suffixLength + 1;
  if (need > sizeof maStack / sizeof maStack[0]) {
    mpName = static_cast<wchar_t*>(std::malloc(need * sizeof(wchar_t)));
    if (!mpName) {
      mpName = maStack;
      qstd::cSTDExceptions::throwOutOfMemory();
    }
  }
  unsigned int w = 0;
  for (unsigned int i = 0; i < prefixLength; ++i) mpName[w++] = prefix[i];
  const unsigned int* c = text.data(true);
  for (unsigned int i = skip; i < n; ++i) {
    unsigned int ch = c[i];
    if (ch == '/') {
      mpName[w++] = L'\\';
    } else if (ch == 0 || ch > 0x10FFFF) {
      if (mpName != maStack) std::free(mpName);
      mpName = maStack;
      qio::cIOExceptions::throwError(qio::cIOException::InvalidName, operation, path);
    } else if (ch >= 0x10000) {
      ch -= 0x10000;
      mpName[w++] = static_cast<wchar_t>(0xD800 + (ch >> 10));
      mpName[w++] = static_cast<wchar_t>(0xDC00 + (ch & 0x3FF));
    } else {
      mpName[w++] = static_cast<wchar_t>(ch);
    }
  }
  for (unsigned int i = 0; i < suffixLength; ++i) mpName[w++] = static_cast<wchar_t>(suffix[i]);
  mpName[w] = 0;
  miLength = w;
}

cWin32Name::~cWin32Name() {
  if (mpName != maStack) std::free(mpName);
}

void cWin32Name::decode(const wchar_t* p, unsigned int n, qucs::cString& out) {
  const unsigned int at = out.appendElements(n);
  unsigned int* d = n ? out.data() + at : nullptr;
  unsigned int w = 0;
  for (unsigned int i = 0; i < n; ++i) {
    const unsigned int u = static_cast<unsigned short>(p[i]);
    if (u >= 0xD800 && u <= 0xDBFF && i + 1 < n) {
      const unsigned int low = static_cast<unsigned short>(p[i + 1]);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        d[w++] = 0x10000 + ((u - 0xD800) << 10) + (low - 0xDC00);
        ++i;
        continue;
      }
    }
    d[w++] = u;
  }
  out.truncate(at + w);
}

}  // namespace qpi
