#include "qelcore/pi/platform/dependend/native_posix/cposixfileinfoimpl.h"

#include <cerrno>
#include <fcntl.h>

#include "qelcore/io/cfileattributes.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

unsigned long long micros(const struct timespec& t) {
  if (t.tv_sec < 0) return 0;
  return static_cast<unsigned long long>(t.tv_sec) * 1000000ull + static_cast<unsigned long long>(t.tv_nsec) / 1000ull;
}

bool vanished(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP; }

}  // namespace

void cPosixFileInfoImpl::fromStat(const struct stat& st, qio::cFileAttributes& out) {
  if (S_ISREG(st.st_mode))
    out.setType(qio::cFileAttributes::File);
  else if (S_ISDIR(st.st_mode))
    out.setType(qio::cFileAttributes::Directory);
  else
    out.setType(qio::cFileAttributes::Other);
  out.setSize(S_ISREG(st.st_mode) && st.st_size > 0 ? static_cast<unsigned long long>(st.st_size) : 0);
  out.setPermissions(static_cast<unsigned int>(st.st_mode) & 07777u);
  out.setModificationTime(qstd::cTime(micros(st.st_mtim)));
  out.setAccessTime(qstd::cTime(micros(st.st_atim)));
  out.setCreationTime(qstd::cTime(0ull));
}

bool cPosixFileInfoImpl::isDotName(const qio::cPath& path) {
  const qucs::cString& s = path.toString();
  const unsigned int n = s.size();
  const unsigned int* p = s.data(true);
  unsigned int i = n;
  while (i > 0 && p[i - 1] != '/') --i;
  if (i >= n || p[i] != '.') return false;
  // "." and ".." are not hidden names.
  return !(n - i == 1 || (n - i == 2 && p[i + 1] == '.'));
}

bool cPosixFileInfoImpl::read(const char* name, const qio::cPath& path, qio::cFileAttributes& out,
                              const char* operation) {
  const bool found = readAt(AT_FDCWD, name, path, out, operation);
  out.setHidden(isDotName(path));
  return found;
}

bool cPosixFileInfoImpl::readAt(int dirFd, const char* name, const qio::cPath& path, qio::cFileAttributes& out,
                                const char* operation) {
  out = qio::cFileAttributes();
  struct stat st;
  if (fstatat(dirFd, name, &st, AT_SYMLINK_NOFOLLOW) != 0) {
    if (vanished(errno)) return false;
    qio::cIOExceptions::throwSystemError(operation, path, errno);
  }
  const bool link = S_ISLNK(st.st_mode);
  if (link && fstatat(dirFd, name, &st, 0) != 0) {
    if (!vanished(errno)) qio::cIOExceptions::throwSystemError(operation, path, errno);
    out.setSymLink(true);
    return false;
  }
  fromStat(st, out);
  out.setSymLink(link);
  return true;
}

}  // namespace qpi
