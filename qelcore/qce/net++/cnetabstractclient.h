/// \class qce::cNetAbstractClient
/// The connecting side: a client connects to an address and holds the
/// connection (one at a time) for its whole life, so receivers stay connected
/// to the connection's signals across reconnects.
///
/// \code
/// qce::cNetAbstractClient client;                  // on the main queue
/// client.connection().sigConnected.connect(app, &cApp::sltConnected);
/// client.connection().sigData.connect(app, &cApp::sltData);
/// client.connection().sigError.connect(app, &cApp::sltError);    // e.g. refused
/// client.connectTo("127.0.0.1:4711");               // returns at once
/// ...
/// client.connection().send(bytes, n);               // kept until connected
/// \endcode
///
/// connectTo() never blocks: it starts a non-blocking connect and returns;
/// the outcome arrives as sigConnected, or as sigError followed by sigClosed.
/// Addresses: a cNetAbstractAddress ("TcpIpv4", "TcpIpv6" from the IPv6
/// address module) or text as cNetAbstractSocket::addressFromString() takes
/// it. Host names are not looked up (a lookup blocks); "localhost" is
/// 127.0.0.1.
#ifndef QELCORE_QCE_NET_CNETABSTRACTCLIENT_H
#define QELCORE_QCE_NET_CNETABSTRACTCLIENT_H

#include "qelcore/qce/net++/cnetabstractconnection.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/std/tautoptr.h"

namespace qstd {
class cAsciiString;
}
namespace qpi {
class cAbstractSocketImpl;
class cWorkQueue;
}  // namespace qpi

namespace qce {

class cNetAbstractAddress;

/// Connects to a peer and holds the connection (see the file comment).
class QEL_EXPORT cNetAbstractClient : public qrmi::cConnectable {
public:
  /// A client whose connection runs on `queue` (the system's main queue when
  /// null; see cNetAbstractSocket::prepareQueue()).
  explicit cNetAbstractClient(qpi::cWorkQueue* queue = nullptr);
  /// Not copyable.
  cNetAbstractClient(const cNetAbstractClient&) = delete;
  /// Not assignable.
  cNetAbstractClient& operator=(const cNetAbstractClient&) = delete;
  /// Destroys the connection (unsent bytes are dropped; nothing is emitted).
  ~cNetAbstractClient() override;

  /// Starts connecting to `address`; a connection that is open is closed
  /// first (emitting its sigClosed). Runtime exception for an address that is
  /// no IP address or has port 0; cOSErrorException when the system refuses
  /// at once. The connection is unchanged when it throws.
  void connectTo(const cNetAbstractAddress& address);
  /// The same for the text form of an address (see the file comment).
  void connectTo(const qstd::cAsciiString& address);
  /// The same for a C string.
  void connectTo(const char* address);

  /// The connection; the same object for the client's whole life.
  cNetAbstractConnection& connection();
  /// The connection, read-only.
  const cNetAbstractConnection& connection() const;
  /// connection().isConnected().
  bool isConnected() const;
  /// connection().close().
  void close();

protected:
  /// A new operating-system socket for the next connect; the platform's TCP
  /// socket by default.
  virtual qstd::tAutoPtr<qpi::cAbstractSocketImpl> createSocketImpl() const;

private:
  class cClientConnection;

  cClientConnection* mpConnection;
};

}  // namespace qce

#endif
