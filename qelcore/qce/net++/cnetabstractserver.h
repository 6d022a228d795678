/// \class qce::cNetAbstractServer
/// The listening side: a server listens on an address and hands out one
/// cNetAbstractConnection per accepted peer, already connected.
///
/// \code
/// class cApp : public qrmi::cConnectable {
/// public:
///   qsa::piVoid sltAccepted(qce::cNetAbstractServer&, qstd::tAutoPtr<qce::cNetAbstractConnection>& c) {
///     c->sigData.connect(*this, &cApp::sltData);
///     mvPeers.push_back(std::unique_ptr<qce::cNetAbstractConnection>(c.release()));   // now ours
///     return qsa::piVoid();
///   }
/// };
/// qce::cNetAbstractServer server;            // on the main queue
/// server.sigAccepted.connect(app, &cApp::sltAccepted);
/// server.listen();                           // 127.0.0.1, a free port
/// unsigned int port = server.port();
/// \endcode
///
/// Ownership: sigAccepted carries the new connection in a tAutoPtr; the
/// receiver that takes it (copies the tAutoPtr or calls release()) owns it
/// from then on. A connection nobody takes is closed and destroyed when the
/// emission returns. Accepted connections run on the server's queue and do not
/// depend on the server: either may be destroyed first.
///
/// Addresses: listen() without an address listens on the IPv4 loopback
/// address only, so nothing is reachable from other hosts unless asked for.
/// Port 0 lets the system pick a free port; port() tells which.
#ifndef QELCORE_QCE_NET_CNETABSTRACTSERVER_H
#define QELCORE_QCE_NET_CNETABSTRACTSERVER_H

#include "qelcore/qce/net++/cnetabstractconnection.h"
#include "qelcore/qce/net++/cnetabstractsocket.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tsharedobject.h"

namespace qstd {
class cAsciiString;
}  // namespace qstd

namespace qpi {
class cWork;
}

namespace qce {

class cNetAbstractAddress;

/// Listens and hands out accepted connections (see the file comment).
class QEL_EXPORT cNetAbstractServer : public cNetAbstractSocket {
public:
  /// A server on `queue` (the system's main queue when null; see
  /// cNetAbstractSocket::prepareQueue()). Not listening yet.
  explicit cNetAbstractServer(qpi::cWorkQueue* queue = nullptr);
  /// Stops listening; accepted connections live on.
  ~cNetAbstractServer() override;

  /// Emitted per accepted peer with the new, connected connection; take the
  /// tAutoPtr to own it (see the file comment).
  qrmi::localSignal2<qsa::piVoid, cNetAbstractServer&, qstd::tAutoPtr<cNetAbstractConnection>&> sigAccepted;
  /// Emitted when accepting fails for a reason that does not pass by itself
  /// (for instance, too many open files). The server keeps listening and
  /// tries again after a pause of 100 ms, so that a failure that lasts does
  /// not keep the queue busy.
  qrmi::localSignal2<qsa::piVoid, cNetAbstractServer&, const qstd::cAbstractException&> sigError;

  /// Listens on 127.0.0.1 at `port` (0: a free port).
  void listen(unsigned int port = 0);
  /// Listens on `address` (its port 0: a free port). Runtime exception for an
  /// address that is no IP address; cOSErrorException when the system
  /// refuses (port in use, ...). A server that listened before stops first;
  /// when this throws it is not listening.
  void listen(const cNetAbstractAddress& address);
  /// Listens on an address in text form (see
  /// cNetAbstractSocket::addressFromString()).
  void listen(const qstd::cAsciiString& address);
  /// The same for a C string.
  void listen(const char* address);
  /// Whether the server listens.
  bool isListening() const;
  /// The port listened on; 0 when not listening.
  unsigned int port() const;
  /// Stops listening.
  void close();

  /// Connections waiting in the system's queue that one readiness event
  /// accepts at most (16 by default, at least 1): the rest follow in the
  /// next pass, so that a flood of peers does not starve the queue's other
  /// works.
  void setAcceptBatch(unsigned int count);

protected:
  /// Accepts the waiting peers (up to the accept batch).
  void ready(unsigned int events) override;

private:
  qsa::piVoid sltResume();

  /// The queue the server runs on, for the accepted connections and the
  /// pause after a failure; used only from that queue's own pass.
  qpi::cWorkQueue* mpQueue;
  unsigned int miAcceptBatch;
  /// The pause after a failed accept, while it runs.
  qstd::tSharedObject<qpi::cWork> mPause;
};

}  // namespace qce

#endif
