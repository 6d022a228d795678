#include "qelcore/pi/platform/cnativefilewriterimpl.h"

#include <cerrno>
#include <cstdio>

#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

int cNativeFileWriterImpl::writeFile(const qucs::cString& path, const char* pData, unsigned int iSize) {
  qstd::tArray<char> name;
  qucs::cEnDecUTF8::defaultEnDec().encode(path, name);
  name.append('\0');
  errno = 0;
  std::FILE* f = std::fopen(name.data(), "wb");
  if (!f) return errno ? errno : EIO;
  const bool written = iSize == 0 || std::fwrite(pData, 1, iSize, f) == iSize;
  int error = written ? 0 : (errno ? errno : EIO);
  if (std::fclose(f) != 0 && error == 0) error = errno ? errno : EIO;
  return error;
}

}  // namespace qpi
