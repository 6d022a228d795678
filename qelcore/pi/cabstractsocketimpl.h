// One operating-system stream socket, non-blocking: the interface that
// cPlatform::createSocketImpl() returns and that the network classes
// (qce::cNetAbstractSocket and its kin) drive from their work queue. Nothing
// here waits: connect() only starts, accept(), send() and receive() report
// "would block" instead of blocking; the caller waits for readiness on
// handle() through an asynchronous I/O work (cFDAIOData).
//
//   qstd::tAutoPtr<qpi::cAbstractSocketImpl> s = qpi::cPlatform::createSocketImpl();
//   sockaddr_in to = ...;
//   if (!s->connect(&to, sizeof to)) { ...wait until handle() is writable...; s->connectError(); }
//   int error = 0;
//   long n = s->send("hello", 5, error);      // 0..5 bytes taken, or Failed with `error`
//
// Addresses are the platform's socket addresses as bytes (see
// cNativeSockAddr); error codes are the system's (errno, WSAGetLastError()).
// Failures of setting up a socket throw qstd::cOSErrorException; failures of
// transfers are returned, so that the caller decides what they mean.
#ifndef QELCORE_PI_CABSTRACTSOCKETIMPL_H
#define QELCORE_PI_CABSTRACTSOCKETIMPL_H

#include <cstddef>

#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qpi {

/// A non-blocking stream socket of the operating system (see the file comment).
class QEL_EXPORT cAbstractSocketImpl {
public:
  /// Results of send() and receive() that are no byte count.
  enum : long {
    /// Nothing can be transferred now; wait for readiness.
    WouldBlock = -1,
    /// The transfer failed; the system's error code is in the `error` argument.
    Failed = -2
  };
  /// Room for any socket address of the platform (sockaddr_storage).
  enum : unsigned int { MaxSockAddrSize = 128 };

  /// A socket that is not open yet.
  cAbstractSocketImpl() {}
  /// Not copyable: one operating-system object.
  cAbstractSocketImpl(const cAbstractSocketImpl&) = delete;
  /// Not assignable.
  cAbstractSocketImpl& operator=(const cAbstractSocketImpl&) = delete;
  /// Closes the socket when it is still open (abortively if data is unsent).
  virtual ~cAbstractSocketImpl();

  /// The descriptor (the SOCKET on Windows) to wait on; -1 when closed.
  virtual int handle() const = 0;

  /// Opens a socket of the address's family and starts connecting to it.
  /// True when connected at once, false while the connection is in progress
  /// (handle() becomes writable when it is decided; connectError() tells
  /// how). Throws cOSErrorException when the system refuses at once; the
  /// socket is closed again then.
  virtual bool connect(const void* sockAddr, unsigned int size) = 0;
  /// After an in-progress connect became writable: 0 when it succeeded,
  /// otherwise the system's error code.
  virtual int connectError() = 0;
  /// Opens a socket of the address's family, binds it there (reusing a
  /// recently used local address) and listens. Throws cOSErrorException; the
  /// socket is closed again then.
  virtual void listen(const void* sockAddr, unsigned int size, int backlog) = 0;
  /// The next connection waiting on a listening socket, non-blocking, or
  /// null when none waits (also when one went away before it was taken).
  /// Throws cOSErrorException for failures that will not pass by themselves.
  virtual qstd::tAutoPtr<cAbstractSocketImpl> accept() = 0;

  /// Writes up to `size` bytes: the count taken (at least 1 when size > 0),
  /// WouldBlock, or Failed with `error` set. Never raises SIGPIPE.
  virtual long send(const char* data, std::size_t size, int& error) = 0;
  /// Reads up to `size` bytes: the count read, 0 at the end of the stream,
  /// WouldBlock, or Failed with `error` set.
  virtual long receive(char* buffer, std::size_t size, int& error) = 0;

  /// The local and the peer's socket address, written to `buffer`; returns
  /// the size written, 0 when unknown or `size` is too small.
  virtual unsigned int localAddress(void* buffer, unsigned int size) const = 0;
  /// The same for the peer's address.
  virtual unsigned int peerAddress(void* buffer, unsigned int size) const = 0;

  /// Ends the sending direction: the peer reads the end of the stream once it
  /// has read what was sent before.
  virtual void shutdownSend() = 0;
  /// Closes the socket; handle() is -1 afterwards. Closing twice is harmless.
  virtual void close() = 0;
};

}  // namespace qpi

#endif
