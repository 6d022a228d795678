#include "qelcore/pi/platform/dependend/native_posix/cposixfileimpl.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "qelcore/io/cioexceptions.h"

namespace qpi {

namespace {

// The directory part of a NUL-terminated name ("." for a bare name).
void syncDirectoryOf(const char* name) {
  const char* slash = nullptr;
  for (const char* p = name; *p; ++p)
    if (*p == '/') slash = p;
  qstd::tArray<char> dir;
  if (!slash)
    dir.append(".", 1);
  else
    dir.append(name, slash == name ? 1u : static_cast<unsigned int>(slash - name));
  dir.append('\0');
  // Makes the rename itself durable; some file systems refuse, which costs
  // nothing but that guarantee.
  const int fd = ::open(dir.data(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd >= 0) {
    ::fsync(fd);
    ::close(fd);
  }
}

}  // namespace

cPosixFileImpl::cPosixFileImpl(const qio::cPath& path, int fd)
    : qio::cAbstractFileImpl(path), miFd(fd), mbAtomic(false) {}

cPosixFileImpl::cPosixFileImpl(const qio::cPath& path, int fd, const qstd::tArray<char>& tempName,
                               const qstd::tArray<char>& targetName)
    : qio::cAbstractFileImpl(path), miFd(fd), mbAtomic(true), mTempName(tempName), mTargetName(targetName) {}

cPosixFileImpl::~cPosixFileImpl() {
  if (miFd >= 0) {
    ::close(miFd);
    if (mbAtomic) ::unlink(mTempName.data());
  }
}

unsigned int cPosixFileImpl::read(char* p, unsigned int n) {
  unsigned int done = 0;
  while (done < n) {
    // One call moves at most about 2 GiB on Linux.
    const unsigned int chunk = n - done < 0x40000000u ? n - done : 0x40000000u;
    const ssize_t got = ::read(miFd, p + done, chunk);
    if (got < 0) {
      if (errno == EINTR) continue;
      qio::cIOExceptions::throwSystemError("read", path(), errno);
    }
    if (got == 0) break;
    done += static_cast<unsigned int>(got);
  }
  return done;
}

void cPosixFileImpl::write(const char* p, unsigned int n) {
  unsigned int done = 0;
  while (done < n) {
    const unsigned int chunk = n - done < 0x40000000u ? n - done : 0x40000000u;
    const ssize_t put = ::write(miFd, p + done, chunk);
    if (put < 0) {
      if (errno == EINTR) continue;
      qio::cIOExceptions::throwSystemError("write", path(), errno);
    }
    // A write that takes nothing would never end: the device is full.
    if (put == 0) qio::cIOExceptions::throwSystemError("write", path(), ENOSPC);
    done += static_cast<unsigned int>(put);
  }
}

void cPosixFileImpl::seek(unsigned long long pos) {
  if (pos > static_cast<unsigned long long>(LLONG_MAX) || ::lseek(miFd, static_cast<off_t>(pos), SEEK_SET) < 0)
    qio::cIOExceptions::throwSystemError("seek", path(),
                                         pos > static_cast<unsigned long long>(LLONG_MAX) ? EINVAL : errno);
}

unsigned long long cPosixFileImpl::pos() {
  const off_t at = ::lseek(miFd, 0, SEEK_CUR);
  if (at < 0) qio::cIOExceptions::throwSystemError("seek", path(), errno);
  return static_cast<unsigned long long>(at);
}

unsigned long long cPosixFileImpl::size() {
  struct stat st;
  if (::fstat(miFd, &st) != 0) qio::cIOExceptions::throwSystemError("size", path(), errno);
  return st.st_size > 0 ? static_cast<unsigned long long>(st.st_size) : 0;
}

void cPosixFileImpl::resize(unsigned long long size) {
  if (size > static_cast<unsigned long long>(LLONG_MAX)) qio::cIOExceptions::throwSystemError("resize", path(), EINVAL);
  int r;
  do {
    r = ::ftruncate(miFd, static_cast<off_t>(size));
  } while (r != 0 && errno == EINTR);
  if (r != 0) qio::cIOExceptions::throwSystemError("resize", path(), errno);
}

void cPosixFileImpl::sync() {
  if (::fsync(miFd) != 0 && errno != EINVAL) qio::cIOExceptions::throwSystemError("sync", path(), errno);
}

void cPosixFileImpl::close() {
  if (miFd < 0) return;
  if (mbAtomic) {
    commit();
    return;
  }
  const int fd = miFd;
  miFd = -1;
  // Not repeated on EINTR: the descriptor is gone either way on Linux.
  if (::close(fd) != 0 && errno != EINTR) qio::cIOExceptions::throwSystemError("close", path(), errno);
}

void cPosixFileImpl::commit() {
  const int fd = miFd;
  miFd = -1;
  int error = 0;
  // The data must be on the disk before the rename makes it the file, or a
  // crash could leave an empty file under the target's name.
  if (::fsync(fd) != 0 && errno != EINVAL) error = errno;
  if (::close(fd) != 0 && error == 0 && errno != EINTR) error = errno;
  if (error == 0 && std::rename(mTempName.data(), mTargetName.data()) != 0) error = errno;
  if (error != 0) {
    ::unlink(mTempName.data());
    qio::cIOExceptions::throwSystemError("save", path(), error);
  }
  syncDirectoryOf(mTargetName.data());
}

}  // namespace qpi
