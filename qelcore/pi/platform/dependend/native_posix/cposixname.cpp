#include "qelcore/pi/platform/dependend/native_posix/cposixname.h"

#include <cstdlib>

#include "qelcore/io/cioexceptions.h"
#include "qelcore/io/cpath.h"
#include "qelcore/io/detail/cnamecodec.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

cPosixName::cPosixName(const qio::cPath& path, const char* operation) : mpName(maStack), miLength(0) {
  const qucs::cString& text = path.toString();
  encode(text.data(true), text.size(), path, operation);
}

cPosixName::cPosixName(const qucs::cString& text, const qio::cPath& path, const char* operation)
    : mpName(maStack), miLength(0) {
  encode(text.data(true), text.size(), path, operation);
}

cPosixName::~cPosixName() {
  if (mpName != maStack) std::free(mpName);
}

void cPosixName::encode(const unsigned int* p, unsigned int n, const qio::cPath& path, const char* operation) {
  const unsigned long long need = 4ull * n + 1;
  if (need > sizeof maStack) {
    mpName = static_cast<char*>(std::malloc(need));
    if (!mpName) {
      mpName = maStack;
      qstd::cSTDExceptions::throwOutOfMemory();
    }
  }
  const unsigned int written = qio::detail::cNameCodec::encode(p, n, mpName);
  if (written == ~0u) {
    // The destructor does not run for a constructor that throws.
    if (mpName != maStack) std::free(mpName);
    mpName = maStack;
    qio::cIOExceptions::throwError(qio::cIOException::InvalidName, operation, path);
  }
  mpName[written] = '\0';
  miLength = written;
}

}  // namespace qpi
