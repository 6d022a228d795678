#include "qelcore/pi/platform/dependend/native_win32/cwin32socketimpl.h"

#include <cstring>
#include <ws2tcpip.h>

#include "qelcore/pi/cpiexceptions.h"

namespace qpi {

namespace {

int familyOf(const void* sockAddr, unsigned int size) {
  sockaddr_storage sa;
  if (size < sizeof(sa.ss_family) || size > sizeof sa) return -1;
  std::memcpy(&sa, sockAddr, size);
  return sa.ss_family;
}

void setNonBlocking(SOCKET s) {
  u_long on = 1;
  ::ioctlsocket(s, FIONBIO, &on);
}

// Small messages go out at once: the callers buffer and batch themselves.
void setNoDelay(SOCKET s) {
  BOOL on = TRUE;
  ::setsockopt(s, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
}

int chunk(std::size_t size) { return size > 0x40000000u ? 0x40000000 : static_cast<int>(size); }

bool startWinsock() {
  WSADATA data;
  return ::WSAStartup(MAKEWORD(2, 2), &data) == 0;
}

// getsockname() or getpeername() into `buffer`; 0 when it fails or does not fit.
unsigned int nameOf(int(WSAAPI* query)(SOCKET, sockaddr*, int*), SOCKET s, void* buffer, unsigned int size) {
  sockaddr_storage sa;
  int length = sizeof sa;
  if (s == INVALID_SOCKET || query(s, reinterpret_cast<sockaddr*>(&sa), &length) != 0 ||
      static_cast<unsigned int>(length) > size)
    return 0;
  std::memcpy(buffer, &sa, static_cast<std::size_t>(length));
  return static_cast<unsigned int>(length);
}

}  // namespace

cWin32SocketImpl::cWin32SocketImpl() : mbStarted(startWinsock()), mSocket(INVALID_SOCKET) {}

cWin32SocketImpl::cWin32SocketImpl(SOCKET socket) : mbStarted(startWinsock()), mSocket(socket) {}

cWin32SocketImpl::~cWin32SocketImpl() {
  close();
  if (mbStarted) ::WSACleanup();
}

void cWin32SocketImpl::fail(const char* operation, int code) {
  close();
  cPIExceptions::throwSocketError(operation, code, __FILE__, __LINE__);
}

void cWin32SocketImpl::open(const void* sockAddr, unsigned int size, const char* operation) {
  close();
  if (!mbStarted) fail(operation, WSANOTINITIALISED);
  const int family = familyOf(sockAddr, size);
  if (family != AF_INET && family != AF_INET6) fail(operation, WSAEAFNOSUPPORT);
  mSocket = ::socket(family, SOCK_STREAM, IPPROTO_TCP);
  if (mSocket == INVALID_SOCKET) fail(operation, ::WSAGetLastError());
  // The queue's descriptors are ints; a handle beyond that cannot be waited on.
  if (mSocket > 0x7FFFFFFF) fail(operation, WSAEMFILE);
  ::SetHandleInformation(reinterpret_cast<HANDLE>(mSocket), HANDLE_FLAG_INHERIT, 0);
  setNonBlocking(mSocket);
}

bool cWin32SocketImpl::connect(const void* sockAddr, unsigned int size) {
  open(sockAddr, size, "connect");
  setNoDelay(mSocket);
  if (::connect(mSocket, static_cast<const sockaddr*>(sockAddr), static_cast<int>(size)) == 0) return true;
  const int code = ::WSAGetLastError();
  if (code == WSAEWOULDBLOCK || code == WSAEINPROGRESS) return false;
  fail("connect", code);
}

int cWin32SocketImpl::connectError() {
  int error = 0;
  int length = sizeof error;
  if (::getsockopt(mSocket, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length) != 0)
    return ::WSAGetLastError();
  return error;
}

void cWin32SocketImpl::listen(const void* sockAddr, unsigned int size, int backlog) {
  open(sockAddr, size, "listen");
  // No SO_REUSEADDR: on Windows it would let others take over the port.
  if (familyOf(sockAddr, size) == AF_INET6) {
    DWORD on = 1;
    ::setsockopt(mSocket, IPPROTO_IPV6, IPV6_V6ONLY, reinterpret_cast<const char*>(&on), sizeof on);
  }
  if (::bind(mSocket, static_cast<const sockaddr*>(sockAddr), static_cast<int>(size)) != 0)
    fail("bind", ::WSAGetLastError());
  if (::listen(mSocket, backlog) != 0) fail("listen", ::WSAGetLastError());
}

qstd::tAutoPtr<cAbstractSocketImpl> cWin32SocketImpl::accept() {
  const SOCKET s = ::accept(mSocket, nullptr, nullptr);
  if (s != INVALID_SOCKET) {
    if (s > 0x7FFFFFFF) {
      ::closesocket(s);
      return qstd::tAutoPtr<cAbstractSocketImpl>();
    }
    setNonBlocking(s);
    setNoDelay(s);
    return qstd::tAutoPtr<cAbstractSocketImpl>(new cWin32SocketImpl(s));
  }
  const int code = ::WSAGetLastError();
  // Nothing waiting, or a peer that gave up while waiting: try later.
  if (code == WSAEWOULDBLOCK || code == WSAECONNRESET || code == WSAEINTR) return qstd::tAutoPtr<cAbstractSocketImpl>();
  cPIExceptions::throwSocketError("accept", code, __FILE__, __LINE__);
}

long cWin32SocketImpl::send(const char* data, std::size_t size, int& error) {
  const int n = ::send(mSocket, data, chunk(size), 0);
  if (n != SOCKET_ERROR) return n;
  const int code = ::WSAGetLastError();
  if (code == WSAEWOULDBLOCK) return WouldBlock;
  error = code;
  return Failed;
}

long cWin32SocketImpl::receive(char* buffer, std::size_t size, int& error) {
  const int n = ::recv(mSocket, buffer, chunk(size), 0);
  if (n != SOCKET_ERROR) return n;
  const int code = ::WSAGetLastError();
  if (code == WSAEWOULDBLOCK) return WouldBlock;
  error = code;
  return Failed;
}

unsigned int cWin32SocketImpl::localAddress(void* buffer, unsigned int size) const {
  return nameOf(::getsockname, mSocket, buffer, size);
}

unsigned int cWin32SocketImpl::peerAddress(void* buffer, unsigned int size) const {
  return nameOf(::getpeername, mSocket, buffer, size);
}

void cWin32SocketImpl::shutdownSend() {
  if (mSocket != INVALID_SOCKET) ::shutdown(mSocket, SD_SEND);
}

void cWin32SocketImpl::close() {
  if (mSocket == INVALID_SOCKET) return;
  ::closesocket(mSocket);
  mSocket = INVALID_SOCKET;
}

}  // namespace qpi
