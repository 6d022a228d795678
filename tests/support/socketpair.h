// A connected pair of sockets for tests of asynchronous I/O: socketpair() on
// POSIX systems, two loopback TCP sockets on Windows (whose I/O processor
// waits on sockets only).
#ifndef QELCORE_TESTS_SUPPORT_SOCKETPAIR_H
#define QELCORE_TESTS_SUPPORT_SOCKETPAIR_H

#ifdef _WIN32
#include <winsock2.h>
#else
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace qeltest {

class cSocketPair {
public:
  cSocketPair() {
#ifdef _WIN32
    WSADATA data;
    ::WSAStartup(MAKEWORD(2, 2), &data);
    SOCKET listener = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in addr = {};
    addr.sin_family = AF_INET;
    addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int length = sizeof addr;
    ::bind(listener, reinterpret_cast<sockaddr*>(&addr), sizeof addr);
    ::getsockname(listener, reinterpret_cast<sockaddr*>(&addr), &length);
    ::listen(listener, 1);
    SOCKET writer = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    ::connect(writer, reinterpret_cast<sockaddr*>(&addr), sizeof addr);
    SOCKET reader = ::accept(listener, nullptr, nullptr);
    ::closesocket(listener);
    miRead = static_cast<int>(reader);
    miWrite = static_cast<int>(writer);
#else
    int fds[2] = {-1, -1};
    ::socketpair(AF_UNIX, SOCK_STREAM, 0, fds);
    miRead = fds[0];
    miWrite = fds[1];
#endif
  }
  ~cSocketPair() {
#ifdef _WIN32
    ::closesocket(static_cast<SOCKET>(miRead));
    ::closesocket(static_cast<SOCKET>(miWrite));
    ::WSACleanup();
#else
    ::close(miRead);
    ::close(miWrite);
#endif
  }
  cSocketPair(const cSocketPair&) = delete;
  cSocketPair& operator=(const cSocketPair&) = delete;

  int readEnd() const { return miRead; }
  void send(char c) { ::send(static_cast<decltype(socketType())>(miWrite), &c, 1, 0); }
  // Reads what is there (the read end must be readable); returns the count.
  int receive() {
    char buffer[64];
    return static_cast<int>(::recv(static_cast<decltype(socketType())>(miRead), buffer, sizeof buffer, 0));
  }

private:
#ifdef _WIN32
  static SOCKET socketType();
#else
  static int socketType();
#endif
  int miRead;
  int miWrite;
};

}  // namespace qeltest

#endif
