#include "qelcore/pi/platform/dependend/native_posix/cposixsocketimpl.h"

#include <errno.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <string.h>
#include <sys/socket.h>
#include <unistd.h>

#include "qelcore/pi/cpiexceptions.h"

namespace qpi {

namespace {

bool wouldBlock(int code) { return code == EAGAIN || code == EWOULDBLOCK; }

int familyOf(const void* sockAddr, unsigned int size) {
  sockaddr_storage sa;
  if (size < sizeof(sa_family_t) || size > sizeof sa) return -1;
  memcpy(&sa, sockAddr, size);
  return sa.ss_family;
}

// Small messages go out at once: the callers buffer and batch themselves.
void setNoDelay(int fd) {
  int on = 1;
  ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

// getsockname() or getpeername() into `buffer`; 0 when it fails or does not fit.
unsigned int nameOf(int (*query)(int, sockaddr*, socklen_t*), int fd, void* buffer, unsigned int size) {
  sockaddr_storage sa;
  socklen_t length = sizeof sa;
  if (fd < 0 || query(fd, reinterpret_cast<sockaddr*>(&sa), &length) != 0 || length > size) return 0;
  memcpy(buffer, &sa, length);
  return length;
}

}  // namespace

cPosixSocketImpl::~cPosixSocketImpl() { close(); }

void cPosixSocketImpl::fail(const char* operation, int code) {
  close();
  cPIExceptions::throwSocketError(operation, code, __FILE__, __LINE__);
}

void cPosixSocketImpl::open(const void* sockAddr, unsigned int size, const char* operation) {
  close();
  const int family = familyOf(sockAddr, size);
  if (family != AF_INET && family != AF_INET6) fail(operation, EAFNOSUPPORT);
  miFd = ::socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP);
  if (miFd < 0) fail(operation, errno);
}

bool cPosixSocketImpl::connect(const void* sockAddr, unsigned int size) {
  open(sockAddr, size, "connect");
  setNoDelay(miFd);
  int rc;
  do {
    rc = ::connect(miFd, static_cast<const sockaddr*>(sockAddr), size);
  } while (rc < 0 && errno == EINTR);
  if (rc == 0) return true;
  if (errno == EINPROGRESS) return false;
  fail("connect", errno);
}

int cPosixSocketImpl::connectError() {
  int error = 0;
  socklen_t length = sizeof error;
  if (::getsockopt(miFd, SOL_SOCKET, SO_ERROR, &error, &length) != 0) return errno;
  return error;
}

void cPosixSocketImpl::listen(const void* sockAddr, unsigned int size, int backlog) {
  open(sockAddr, size, "listen");
  int on = 1;
  ::setsockopt(miFd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  if (familyOf(sockAddr, size) == AF_INET6) ::setsockopt(miFd, IPPROTO_IPV6, IPV6_V6ONLY, &on, sizeof on);
  if (::bind(miFd, static_cast<const sockaddr*>(sockAddr), size) != 0) fail("bind", errno);
  if (::listen(miFd, backlog) != 0) fail("listen", errno);
}

qstd::tAutoPtr<cAbstractSocketImpl> cPosixSocketImpl::accept() {
  for (;;) {
    const int fd = ::accept4(miFd, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (fd >= 0) {
      setNoDelay(fd);
      return qstd::tAutoPtr<cAbstractSocketImpl>(new cPosixSocketImpl(fd));
    }
    const int code = errno;
    if (code == EINTR) continue;
    // A peer that gave up while waiting, or nothing waiting: try later.
    if (wouldBlock(code) || code == ECONNABORTED || code == EPROTO || code == EPERM)
      return qstd::tAutoPtr<cAbstractSocketImpl>();
    cPIExceptions::throwSocketError("accept", code, __FILE__, __LINE__);
  }
}

long cPosixSocketImpl::send(const char* data, std::size_t size, int& error) {
  for (;;) {
    const ssize_t n = ::send(miFd, data, size, MSG_NOSIGNAL);
    if (n >= 0) return static_cast<long>(n);
    if (errno == EINTR) continue;
    if (wouldBlock(errno)) return WouldBlock;
    error = errno;
    return Failed;
  }
}

long cPosixSocketImpl::receive(char* buffer, std::size_t size, int& error) {
  for (;;) {
    const ssize_t n = ::recv(miFd, buffer, size, 0);
    if (n >= 0) return static_cast<long>(n);
    if (errno == EINTR) continue;
    if (wouldBlock(errno)) return WouldBlock;
    error = errno;
    return Failed;
  }
}

unsigned int cPosixSocketImpl::localAddress(void* buffer, unsigned int size) const {
  return nameOf(::getsockname, miFd, buffer, size);
}

unsigned int cPosixSocketImpl::peerAddress(void* buffer, unsigned int size) const {
  return nameOf(::getpeername, miFd, buffer, size);
}

void cPosixSocketImpl::shutdownSend() {
  if (miFd >= 0) ::shutdown(miFd, SHUT_WR);
}

void cPosixSocketImpl::close() {
  if (miFd < 0) return;
  ::close(miFd);
  miFd = -1;
}

}  // namespace qpi
