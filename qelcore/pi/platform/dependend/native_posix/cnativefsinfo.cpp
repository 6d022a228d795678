#include "qelcore/pi/platform/cnativefsinfo.h"

#include <cerrno>
#include <cstring>

#include "qelcore/io/cioexception.h"
#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

// strerror_r comes in two forms; whichever the C library has is used.
[[maybe_unused]] const char* pickText(int result, const char* buffer) { return result == 0 ? buffer : nullptr; }
[[maybe_unused]] const char* pickText(const char* result, const char*) { return result; }

}  // namespace

int cNativeFsInfo::pathStyle() { return qio::cPath::PosixStyle; }

int cNativeFsInfo::errorKind(int code) {
  switch (code) {
    case ENOENT:
      return qio::cIOException::NotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return qio::cIOException::PermissionDenied;
    case EEXIST:
      return qio::cIOException::AlreadyExists;
    case ENOTDIR:
      return qio::cIOException::NotADirectory;
    case EISDIR:
      return qio::cIOException::IsADirectory;
    case ENOTEMPTY:
      return qio::cIOException::DirectoryNotEmpty;
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
    case EFBIG:
      return qio::cIOException::NoSpace;
    case ENAMETOOLONG:
    case EILSEQ:
      return qio::cIOException::InvalidName;
    case EXDEV:
      return qio::cIOException::CrossDevice;
    case EBADF:
      return qio::cIOException::NotOpen;
    case ENOTSUP:
#if defined(EOPNOTSUPP) && EOPNOTSUPP != ENOTSUP
    case EOPNOTSUPP:
#endif
    case ENOSYS:
      return qio::cIOException::Unsupported;
    default:
      return qio::cIOException::Other;
  }
}

unsigned int cNativeFsInfo::listSeparator() { return ':'; }

}  // namespace qpi
