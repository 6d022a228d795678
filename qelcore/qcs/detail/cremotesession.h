// One end of a remote component connection, without any I/O of its own:
// bytes from the peer go in through feed(), bytes for the peer come out
// through a cRemoteSink, and waiting (for a result, a timeout) runs nested
// passes of the system's work queue. The TCP classes drive it, the tests
// drive two of them over memory, the fuzz target feeds it arbitrary bytes.
//
// The stream is a sequence of frames: a 32-bit little-endian payload length,
// then the payload, a binary archive whose first value is the frame type.
//
//   Hello      tag "QELRemote", protocol version, library version (major,
//              minor, patch), the sender's location, a 32-byte random nonce
//   Auth       HMAC-SHA-256 over the role, both nonces and both locations,
//              keyed with the shared secret
//   Export     component key, location, interface count, the interfaces
//   Withdraw   component key
//   Call       call id, component key, interface index, slot name, arguments
//   Result     call id, the result archive (result and alterable arguments)
//   Exception  call id, the exception chain
//   Signal     component key, interface index, signal name, arguments
//
// Both ends send Hello at once and Auth once they have the peer's Hello;
// nothing else is accepted before the peer's Auth has been verified. The
// server then exports its components. Whatever does not decode, arrives out
// of order or exceeds a limit closes the connection (and only it): pending
// calls fail with cRMIException and the peer's proxies are removed.
#ifndef QELCORE_QCS_DETAIL_CREMOTESESSION_H
#define QELCORE_QCS_DETAIL_CREMOTESESSION_H

#include <cstddef>

#include "qelcore/qelexport.h"

namespace qstd {
class cAsciiString;
}
namespace qsa {
class cAbstractDeserializer;
class cAbstractSerializer;
}  // namespace qsa

namespace qcs {

class cAbstractComponent;
class cComponentLocation;
class cModuleMgr;
class cRemoteOptions;

namespace detail {

enum RemoteFrameType : unsigned int {
  FrameHello = 1,
  FrameAuth = 2,
  FrameExport = 3,
  FrameWithdraw = 4,
  FrameCall = 5,
  FrameResult = 6,
  FrameException = 7,
  FrameSignal = 8
};

/// Where a session's outgoing bytes go.
class QEL_EXPORT cRemoteSink {
public:
  virtual ~cRemoteSink();
  /// Queues bytes for the peer, in order.
  virtual void send(const char* data, unsigned int size) = 0;
  /// The session closed: drop the connection. Called once.
  virtual void close() = 0;
  /// The peer has been authenticated. Here: nothing.
  virtual void established();
  /// Bytes sent but not yet taken by the peer. Here: 0 (a sink that
  /// cannot tell is never held to the backlog limit).
  virtual std::size_t backlog() const;
};

class cRemoteSessionImpl;

/// The protocol engine of one connection.
class QEL_EXPORT cRemoteSession {
public:
  enum Role : unsigned int { Client = 0, Server = 1 };

  /// `mgr`, `options` and `sink` must outlive the session. A server
  /// exports what exportComponent() names; a client adds proxies of the
  /// peer's components to `mgr`.
  cRemoteSession(Role role, cModuleMgr& mgr, const cRemoteOptions& options, cRemoteSink& sink);
  cRemoteSession(const cRemoteSession&) = delete;
  cRemoteSession& operator=(const cRemoteSession&) = delete;
  /// Fails pending calls and removes the peer's proxies (later, through the
  /// manager's pass), without calling the sink.
  ~cRemoteSession();

  /// Sends the Hello frame.
  void start();
  /// Bytes from the peer. Never throws: bad input closes the session.
  void feed(const char* data, std::size_t size);
  /// The transport lost the connection.
  void connectionLost();
  /// Closes the session from this side (the sink's close() is called).
  void close();

  /// Server: offers `component` to the peer (now, or once authenticated).
  /// A component that leaves the manager is withdrawn.
  void exportComponent(cAbstractComponent& component);

  bool established() const;
  bool closed() const;
  /// Why the session closed (empty while open or after a plain close()).
  const qstd::cAsciiString& closeReason() const;
  /// The location the peer announced in its Hello.
  const cComponentLocation& peerLocation() const;
  /// Calls waiting for their results.
  unsigned int pendingCalls() const;
  /// Client: the proxies currently added to the manager for the peer.
  unsigned int proxyCount() const;

private:
  cRemoteSessionImpl* mpImpl;
};

}  // namespace detail
}  // namespace qcs

#endif
