#include "qelcore/pi/platform/cnativefsimpl.h"

#include <cerrno>
#include <cstring>

#include "qelcore/io/cioexception.h"
#include "qelcore/io/cpath.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixfsimpl.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

// strerror_r comes in two forms; whichever the C library has is used.
[[maybe_unused]] const char* pickText(int result, const char* buffer) { return result == 0 ? buffer : nullptr; }
[[maybe_unused]] const char* pickText(const char* result, const char*) { return result; }

}  // namespace

qstd::tAutoPtr<qio::cAbstractFsImpl> cNativeFsImpl::create(qio::cFs&) {
  return qstd::tAutoPtr<qio::cAbstractFsImpl>(new cPosixFsImpl);
}

int cNativeFsImpl::pathStyle() { return qio::cPath::PosixStyle; }

int cNativeFsImpl::errorKind(int code) {
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

void cNativeFsImpl::errorText(int code, qucs::cString& out) {
  char buffer[256];
  buffer[0] = '\0';
  const char* text = pickText(::strerror_r(code, buffer, sizeof buffer), buffer);
  if (!text || !*text) {
    out = "Unknown error ";
    out.addNum32(code);
    return;
  }
  out = text;
}

unsigned int cNativeFsImpl::listSeparator() { return ':'; }

}  // namespace qpi
