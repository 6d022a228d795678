// Random bytes and what file permissions tell, POSIX systems.
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/random.h>
#endif

#include "qelcore/pi/cplatform.h"
#include "qelcore/std/cstdexceptions.h"

namespace qpi {

void cPlatform::randomBytes(void* data, unsigned int size) {
  char* p = static_cast<char*>(data);
#if defined(__linux__)
  while (size > 0) {
    const ssize_t got = ::getrandom(p, size, 0);
    if (got < 0) {
      if (errno == EINTR) continue;
      if (errno == ENOSYS) break;  // an old kernel: read the device below
      qstd::cSTDExceptions::throwOSError("getrandom", errno);
    }
    p += got;
    size -= static_cast<unsigned int>(got);
  }
  if (size == 0) return;
#endif
  const int fd = ::open("/dev/urandom", O_RDONLY | O_CLOEXEC);
  if (fd < 0) qstd::cSTDExceptions::throwOSError("open /dev/urandom", errno);
  while (size > 0) {
    const ssize_t got = ::read(fd, p, size);
    if (got <= 0) {
      if (got < 0 && errno == EINTR) continue;
      const int error = got < 0 ? errno : EIO;
      ::close(fd);
      qstd::cSTDExceptions::throwOSError("read /dev/urandom", error);
    }
    p += got;
    size -= static_cast<unsigned int>(got);
  }
  ::close(fd);
}

bool cPlatform::permissionsShowReaders() { return true; }

}  // namespace qpi
