// The Windows stream socket behind cPlatform::createSocketImpl(): a Winsock
// socket of the address's family (IPv4 or IPv6) in non-blocking mode.
#ifndef QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32SOCKETIMPL_H
#define QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32SOCKETIMPL_H

#include <winsock2.h>

#include "qelcore/pi/cabstractsocketimpl.h"

namespace qpi {

class cWin32SocketImpl : public cAbstractSocketImpl {
public:
  cWin32SocketImpl();
  // An accepted socket.
  explicit cWin32SocketImpl(SOCKET socket);
  ~cWin32SocketImpl() override;

  int handle() const override { return mSocket == INVALID_SOCKET ? -1 : static_cast<int>(mSocket); }
  bool connect(const void* sockAddr, unsigned int size) override;
  int connectError() override;
  void listen(const void* sockAddr, unsigned int size, int backlog) override;
  qstd::tAutoPtr<cAbstractSocketImpl> accept() override;
  long send(const char* data, std::size_t size, int& error) override;
  long receive(char* buffer, std::size_t size, int& error) override;
  unsigned int localAddress(void* buffer, unsigned int size) const override;
  unsigned int peerAddress(void* buffer, unsigned int size) const override;
  void shutdownSend() override;
  void close() override;

private:
  void open(const void* sockAddr, unsigned int size, const char* operation);
  [[noreturn]] void fail(const char* operation, int code);

  // Winsock is started once per socket object and cleaned up with it.
  bool mbStarted;
  SOCKET mSocket;
};

}  // namespace qpi

#endif
