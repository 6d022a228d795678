// The POSIX stream socket behind cPlatform::createSocketImpl(): a
// non-blocking BSD socket of the address's family (IPv4 or IPv6).
#ifndef QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXSOCKETIMPL_H
#define QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXSOCKETIMPL_H

#include "qelcore/pi/cabstractsocketimpl.h"

namespace qpi {

class cPosixSocketImpl : public cAbstractSocketImpl {
public:
  cPosixSocketImpl() : miFd(-1) {}
  // An accepted descriptor, already non-blocking.
  explicit cPosixSocketImpl(int fd) : miFd(fd) {}
  ~cPosixSocketImpl() override;

  int handle() const override { return miFd; }
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
  // A new non-blocking socket of the family of `sockAddr`, replacing any.
  void open(const void* sockAddr, unsigned int size, const char* operation);
  [[noreturn]] void fail(const char* operation, int code);

  int miFd;
};

}  // namespace qpi

#endif
