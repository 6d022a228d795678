#include "qelcore/pi/platform/dependend/native_posix/cposixfsimpl.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "qelcore/io/cfile.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/io/detail/cnamecodec.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixdirimpl.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixfileimpl.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixfileinfoimpl.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixname.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixwatchimpl.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

[[noreturn]] void fail(const char* operation, const qio::cPath& path, int error,
                       qstd::cCallSite at = qstd::cCallSite::here()) {
  qio::cIOExceptions::throwSystemError(operation, path, error, at);
}

int openRetrying(const char* name, int flags, mode_t mode) {
  int fd;
  do {
    fd = ::open(name, flags, mode);
  } while (fd < 0 && errno == EINTR);
  return fd;
}

std::atomic<unsigned int> gTempCounter(0);

}  // namespace

bool cPosixFsImpl::attributes(const qio::cPath& path, qio::cFileAttributes& out) {
  cPosixName name(path, "stat");
  return cPosixFileInfoImpl::read(name.c_str(), path, out, "stat");
}

qstd::tAutoPtr<qio::cAbstractFileImpl> cPosixFsImpl::open(const qio::cPath& path, unsigned int mode) {
  if (mode & qio::cFile::Atomic) return openAtomic(path);
  cPosixName name(path, "open");
  const bool writes = (mode & (qio::cFile::Write | qio::cFile::Append)) != 0;
  int flags = O_CLOEXEC;
  if (writes)
    flags |= (mode & qio::cFile::Read) ? O_RDWR : O_WRONLY;
  else
    flags |= O_RDONLY;
  if (mode & qio::cFile::Append) flags |= O_APPEND;
  if (mode & qio::cFile::Create) flags |= O_CREAT;
  if (mode & qio::cFile::Truncate) flags |= O_TRUNC;
  if (mode & qio::cFile::Exclusive) flags |= O_EXCL;
  const int fd = openRetrying(name.c_str(), flags, 0666);
  if (fd < 0) fail("open", path, errno);
  // A directory opens for reading on Linux; only its reads would fail.
  struct stat st;
  if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
    ::close(fd);
    fail("open", path, EISDIR);
  }
  return qstd::tAutoPtr<qio::cAbstractFileImpl>(new cPosixFileImpl(path, fd));
}

qstd::tAutoPtr<qio::cAbstractFileImpl> cPosixFsImpl::openAtomic(const qio::cPath& path) {
  cPosixName target(path, "open");
  // The new file takes the old one's permissions.
  struct stat st;
  bool replaces = false;
  if (::stat(target.c_str(), &st) == 0) {
    if (S_ISDIR(st.st_mode)) fail("open", path, EISDIR);
    replaces = true;
  }
  // A hidden name beside the target, so that the rename stays within one
  // directory (and one file system).
  const char* slash = std::strrchr(target.c_str(), '/');
  const unsigned int dirLength = slash ? static_cast<unsigned int>(slash - target.c_str()) + 1 : 0;
  for (unsigned int attempt = 0;; ++attempt) {
    qstd::tArray<char> temp;
    temp.append(target.c_str(), dirLength);
    temp.append('.');
    // Short enough that the suffix keeps it within the system's limit.
    const unsigned int nameLength = target.length() - dirLength;
    temp.append(target.c_str() + dirLength, nameLength < 200 ? nameLength : 200);
    qstd::cAsciiString suffix(".tmp-");
    suffix.addUNum(static_cast<unsigned long long>(::getpid()));
    suffix += '-';
    suffix.addUNum32(gTempCounter.fetch_add(1));
    temp.append(suffix.c_str(), suffix.size());
    temp.append('\0');
    const int fd = openRetrying(temp.data(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) {
      if (errno == EEXIST && attempt < 100) continue;
      fail("open", path, errno);
    }
    if (replaces) ::fchmod(fd, st.st_mode & 07777);
    qstd::tArray<char> targetName(target.c_str(), target.length() + 1);
    return qstd::tAutoPtr<qio::cAbstractFileImpl>(new cPosixFileImpl(path, fd, temp, targetName));
  }
}

qstd::tAutoPtr<qio::cAbstractDirImpl> cPosixFsImpl::openDir(const qio::cPath& path) {
  cPosixName name(path, "list");
  DIR* dir = ::opendir(name.c_str());
  if (!dir) fail("list", path, errno);
  return qstd::tAutoPtr<qio::cAbstractDirImpl>(new cPosixDirImpl(path, dir));
}

void cPosixFsImpl::createDir(const qio::cPath& path) {
  cPosixName name(path, "createDir");
  if (::mkdir(name.c_str(), 0777) != 0) fail("createDir", path, errno);
}

void cPosixFsImpl::remove(const qio::cPath& path) {
  cPosixName name(path, "remove");
  if (::unlink(name.c_str()) == 0) return;
  const int error = errno;
  // Linux says EISDIR for a directory, others EPERM.
  if (error == EISDIR || error == EPERM) {
    struct stat st;
    if (::lstat(name.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) {
      if (::rmdir(name.c_str()) == 0) return;
      fail("remove", path, errno == EEXIST ? ENOTEMPTY : errno);
    }
  }
  fail("remove", path, error);
}

void cPosixFsImpl::rename(const qio::cPath& from, const qio::cPath& to, bool replace) {
  cPosixName a(from, "rename");
  cPosixName b(to, "rename");
  if (!replace) {
#ifdef RENAME_NOREPLACE
    if (::renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_NOREPLACE) == 0) return;
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP)
      qio::cIOExceptions::throwSystemError("rename", from, to, errno);
#endif
    // Without the system's help the check and the rename are two steps.
    struct stat st;
    if (::lstat(b.c_str(), &st) == 0) qio::cIOExceptions::throwSystemError("rename", from, to, EEXIST);
  }
  if (std::rename(a.c_str(), b.c_str()) != 0) qio::cIOExceptions::throwSystemError("rename", from, to, errno);
}

void cPosixFsImpl::setPermissions(const qio::cPath& path, unsigned int permissions) {
  cPosixName name(path, "setPermissions");
  if (::chmod(name.c_str(), static_cast<mode_t>(permissions & 07777u)) != 0) fail("setPermissions", path, errno);
}

void cPosixFsImpl::setModificationTime(const qio::cPath& path, const qstd::cTime& time) {
  cPosixName name(path, "setModificationTime");
  struct timespec times[2];
  times[0].tv_sec = 0;
  times[0].tv_nsec = UTIME_OMIT;
  times[1].tv_sec = static_cast<time_t>(time.get() / 1000000ull);
  times[1].tv_nsec = static_cast<long>(time.get() % 1000000ull) * 1000L;
  if (::utimensat(AT_FDCWD, name.c_str(), times, 0) != 0) fail("setModificationTime", path, errno);
}

qio::cPath cPosixFsImpl::currentDirectory() {
  qstd::tArray<char> buffer(256);
  for (;;) {
    if (::getcwd(buffer.data(), buffer.size())) break;
    if (errno != ERANGE || buffer.size() >= (1u << 24)) fail("currentDirectory", qio::cPath("."), errno);
    buffer.setSize(buffer.size() * 2);
  }
  qucs::cString text;
  qio::detail::cNameCodec::decode(buffer.data(), static_cast<unsigned int>(std::strlen(buffer.data())), text);
  return qio::cPath(text);
}

qio::cPath cPosixFsImpl::tempDirectory() {
  const char* dir = std::getenv("TMPDIR");
  return qio::cPath(dir && *dir ? dir : "/tmp");
}

qstd::tAutoPtr<qio::cAbstractWatchImpl> cPosixFsImpl::createWatch(const qio::cPath& path) {
  return qstd::tAutoPtr<qio::cAbstractWatchImpl>(cPosixWatchImpl::create(path));
}

}  // namespace qpi
