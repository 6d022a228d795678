#include "qelcore/pi/platform/dependend/native_posix/cposixdirimpl.h"

#include <cerrno>
#include <cstring>

#include "qelcore/io/cioexceptions.h"
#include "qelcore/io/detail/cnamecodec.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixfileinfoimpl.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

cPosixDirImpl::cPosixDirImpl(const qio::cPath& path, DIR* dir) : mPath(path), mpDir(dir), mpName(nullptr) {}

cPosixDirImpl::~cPosixDirImpl() { ::closedir(mpDir); }

bool cPosixDirImpl::next(qucs::cString& name, qio::cFileAttributes::Type& type) {
  for (;;) {
    errno = 0;
    const struct dirent* e = ::readdir(mpDir);
    if (!e) {
      mpName = nullptr;
      if (errno != 0) qio::cIOExceptions::throwSystemError("list", mPath, errno);
      return false;
    }
    const char* n = e->d_name;
    if (n[0] == '.' && (n[1] == '\0' || (n[1] == '.' && n[2] == '\0'))) continue;
    mpName = n;
    name.truncate(0);
    qio::detail::cNameCodec::decode(n, static_cast<unsigned int>(std::strlen(n)), name);
#ifdef _DIRENT_HAVE_D_TYPE
    switch (e->d_type) {
      case DT_REG:
        type = qio::cFileAttributes::File;
        break;
      case DT_DIR:
        type = qio::cFileAttributes::Directory;
        break;
      case DT_LNK:
      case DT_UNKNOWN:
        type = qio::cFileAttributes::Missing;
        break;
      default:
        type = qio::cFileAttributes::Other;
        break;
    }
#else
    type = qio::cFileAttributes::Missing;
#endif
    return true;
  }
}

void cPosixDirImpl::attributes(qio::cFileAttributes& out) {
  if (!mpName) {
    out = qio::cFileAttributes();
    return;
  }
  // An entry removed since it was listed reads as Missing.
  if (cPosixFileInfoImpl::readAt(::dirfd(mpDir), mpName, mPath, out, "stat")) out.setHidden(mpName[0] == '.');
}

}  // namespace qpi
