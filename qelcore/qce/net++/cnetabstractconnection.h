/// \class qce::cNetAbstractConnection
/// A byte-stream connection to a peer, on a work queue: what a client
/// connects (cNetAbstractClient::connection()) and what a server hands out per
/// accepted peer (cNetAbstractServer::sigAccepted).
///
/// \code
/// class cEcho : public qrmi::cConnectable {
/// public:
///   qsa::piVoid sltData(qce::cNetAbstractConnection& c) {
///     c.send(c.receivedData(), c.receivedSize());
///     c.consume(c.receivedSize());
///     return qsa::piVoid();
///   }
/// };
/// connection.sigData.connect(echo, &cEcho::sltData);
/// \endcode
///
/// Receiving (pull, no copy). Received bytes collect in the connection's
/// receive buffer. After each read from the network sigData is emitted; the
/// receiver looks at receivedData()/receivedSize(), takes what it can use and
/// calls consume() for that many bytes. What it leaves stays at the front of
/// the buffer and is offered again, with whatever arrives next, at the next
/// sigData. So a framing layer parses frames straight from the buffer and
/// leaves a partial frame where it is. read() is the copying convenience.
/// When the unconsumed bytes reach receiveLimit() the connection stops reading
/// (the peer is slowed down by the network itself) until bytes are consumed:
/// set the limit above the largest message you wait for.
///
/// Sending (buffered). send() hands the bytes to the system at once as far as
/// it takes them; the rest is kept and sent when the socket has room again
/// (only then is the queue asked to watch for room). pendingSendBytes() is
/// what waits; a sender that must not run ahead of a slow peer checks it.
///
/// Buffers grow on demand and shrink again once a burst has passed: an idle
/// connection holds no buffer larger than 16 KiB in either direction.
///
/// Signals, all emitted from the queue's pass or from the call named, each
/// with the connection itself. None needs a receiver.
/// - sigConnected: a connect() has succeeded.
/// - sigData: bytes have arrived (see above).
/// - sigError: something failed (a connect refused, a reset, ...), with the
///   exception: qstd::cOSErrorException with the system's text for system
///   failures. sigClosed follows.
/// - sigClosed: the connection is over, once per connection: the peer ended
///   the stream (after the last sigData), an error ended it, a connect failed,
///   or close() was called (emitted from inside close()).
/// A receiver may close or destroy the connection from inside any signal
/// (destroying a signal during its own emission writes a diagnostic line to
/// the debug output; it is safe).
///
/// Ownership: a client owns its connection; an accepted connection belongs to
/// whoever took it from sigAccepted. Destroying a connection drops unsent
/// bytes; close() first and keep the object until pendingSendBytes() is 0 for
/// a graceful end (isOpen() turns false once the peer has ended too).
#ifndef QELCORE_QCE_NET_CNETABSTRACTCONNECTION_H
#define QELCORE_QCE_NET_CNETABSTRACTCONNECTION_H

#include <cstddef>

#include "qelcore/qce/net++/cnetabstractsocket.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/tautoptr.h"

namespace qstd {
template <typename T, typename Traits>
class tArray;
template <typename T>
struct tArrayByteLevelTraits;
}  // namespace qstd

namespace qce {

class cNetAbstractClient;
class cNetAbstractServer;

/// A byte-stream connection on a work queue (see the file comment).
class QEL_EXPORT cNetAbstractConnection : public cNetAbstractSocket {
public:
  /// Where the connection stands.
  enum State {
    /// Not connected: never connected, or over.
    Closed,
    /// A connect() is in progress.
    Connecting,
    /// Connected: data flows both ways.
    Connected
  };

  /// The library's byte array, accepted by send().
  typedef qstd::tArray<char, qstd::tArrayByteLevelTraits<char>> tByteArray;

  /// Drops unsent bytes and closes at once, without emitting anything.
  ~cNetAbstractConnection() override;

  /// Emitted when a connect() has succeeded.
  qrmi::localSignal1<qsa::piVoid, cNetAbstractConnection&> sigConnected;
  /// Emitted after bytes have arrived; take them with receivedData() and
  /// consume(), or read().
  qrmi::localSignal1<qsa::piVoid, cNetAbstractConnection&> sigData;
  /// Emitted once when the connection is over (see the file comment).
  qrmi::localSignal1<qsa::piVoid, cNetAbstractConnection&> sigClosed;
  /// Emitted with what failed; sigClosed follows.
  qrmi::localSignal2<qsa::piVoid, cNetAbstractConnection&, const qstd::cAbstractException&> sigError;

  /// Where the connection stands now.
  State state() const;
  /// state() == Connected.
  bool isConnected() const;

  /// The unconsumed received bytes; valid until the next consume(), read()
  /// or return to the queue.
  const char* receivedData() const;
  /// How many unconsumed received bytes receivedData() points to.
  std::size_t receivedSize() const;
  /// Drops the first `count` received bytes. Bug exception when `count` is
  /// more than receivedSize().
  void consume(std::size_t count);
  /// Copies up to `size` received bytes to `buffer` and consumes them;
  /// returns how many.
  std::size_t read(char* buffer, std::size_t size);
  /// Unconsumed bytes at which reading pauses; 4 MiB by default. At least 1.
  void setReceiveLimit(std::size_t bytes);
  /// See setReceiveLimit().
  std::size_t receiveLimit() const;

  /// Sends `size` bytes: what the system does not take now is kept and sent
  /// later. While connecting, everything is kept and sent once connected.
  /// Runtime exception "Network connection is not connected!" when the
  /// connection is closed (nothing is kept then).
  void send(const char* data, std::size_t size);
  /// Sends the whole byte array.
  void send(const tByteArray& bytes);
  /// Bytes given to send() that the system has not taken yet.
  std::size_t pendingSendBytes() const;

  /// Ends the connection gracefully: nothing more is delivered or accepted
  /// for sending; the pending bytes are still sent (while this object
  /// lives), then the sending direction is shut down, and the socket closes
  /// once the peer has ended its side too (what it sends meanwhile is read
  /// and dropped). A connect in progress is dropped at once. Emits sigClosed
  /// (from inside this call) when the connection was connecting or
  /// connected; does nothing when it is closed already.
  void close();

  /// The peer's address, in the type of its family (see localAddress()).
  /// Runtime exception "Network socket is not open!" when not open.
  qstd::tAutoPtr<cNetAbstractAddress> peerAddress() const;

  /// The bytes the connection's two buffers hold allocated now (for
  /// measuring memory).
  std::size_t bufferCapacity() const;

protected:
  /// A closed connection on `queue` (the system's main queue when null).
  explicit cNetAbstractConnection(qpi::cWorkQueue* queue);

  /// Connects, sends what is pending and receives, as the socket allows.
  void ready(unsigned int events) override;

private:
  friend class cNetAbstractClient;
  friend class cNetAbstractServer;
  class cBuffers;

  /// Starts connecting `impl` to the socket address (a client's connect).
  void open(qstd::tAutoPtr<qpi::cAbstractSocketImpl> impl, const void* sockAddr, unsigned int size);
  /// Takes an accepted socket: connected at once.
  void adopt(qstd::tAutoPtr<qpi::cAbstractSocketImpl> impl);
  /// The steps of ready(); each returns false when the object died inside.
  bool connected();
  bool receive();
  bool flush();
  /// Reads and drops what arrives while closing, until the peer ends.
  void drain();
  /// Ends the connection at once after `e`: emits sigError and sigClosed.
  /// Returns false when the object was destroyed meanwhile.
  bool fail(const qstd::cAbstractException& e);
  /// The peer ended its stream: finish sending, then close.
  bool peerEnded();
  /// Emits sigClosed; false when the object died inside.
  bool emitClosed();
  void updateWatch();

  State meState;
  /// close() was called or the peer ended: sending what is pending, then the
  /// socket closes.
  bool mbClosing;
  /// The peer's end of stream has been read.
  bool mbPeerEnded;
  std::size_t miReceiveLimit;
  cBuffers* mpBuffers;
};

}  // namespace qce

#endif
