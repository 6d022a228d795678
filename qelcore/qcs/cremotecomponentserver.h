// Offers chosen components of this process to other processes over TCP.
// Every client that connects and proves the shared secret receives the
// exported components (their descriptions and interfaces) and can call their
// public slots; a component that leaves the module manager is withdrawn from
// every client.
//
//   qcs::cRemoteOptions options;
//   options.loadSecretFile("app.secret");            // readable by its owner only
//   qcs::cRemoteComponentServer server(mgr, options);
//   server.exportComponent(clock);
//   server.listen(4711);                             // 127.0.0.1:4711
//   for (;;) qpi::system().exec();
//
// The server runs on the system's main work queue. It listens on the
// loopback address unless given another one: connections carry no
// encryption (see cRemoteOptions), so across networks use a tunnel. A slot
// called remotely runs on the main queue like any work; while it waits for a
// remote call of its own, other calls may run in between.
#ifndef QELCORE_QCS_CREMOTECOMPONENTSERVER_H
#define QELCORE_QCS_CREMOTECOMPONENTSERVER_H

#include "qelcore/qelexport.h"

namespace qstd {
class cAsciiString;
}

namespace qcs {

class cAbstractComponent;
class cModuleMgr;
class cRemoteOptions;
class cRemoteComponentServerImpl;

/// Exports components to remote clients (see the file comment).
class QEL_EXPORT cRemoteComponentServer {
public:
  /// A server for the components of `mgr` (which must outlive it); the
  /// options are copied and must hold a secret (a bug exception otherwise).
  cRemoteComponentServer(cModuleMgr& mgr, const cRemoteOptions& options);
  cRemoteComponentServer(const cRemoteComponentServer&) = delete;
  cRemoteComponentServer& operator=(const cRemoteComponentServer&) = delete;
  /// Stops listening and drops every connection (their clients see the loss).
  ~cRemoteComponentServer();

  /// Offers `component` to every client, now and later. Exporting the same
  /// component again changes nothing.
  void exportComponent(cAbstractComponent& component);

  /// Listens on 127.0.0.1 at `port` (0: a free one, see port()).
  void listen(unsigned int port = 0);
  /// Listens on an address in text form, "a.b.c.d:port" or "[v6]:port";
  /// "0.0.0.0:port" reaches every interface of the host. Runtime exception
  /// for a malformed address; cOSErrorException when the system refuses.
  void listen(const qstd::cAsciiString& address);
  /// The port listened on; 0 when not listening.
  unsigned int port() const;
  /// Authenticated clients connected now.
  unsigned int clientCount() const;
  /// Stops listening and drops every connection.
  void close();

private:
  cRemoteComponentServerImpl* mpImpl;
};

}  // namespace qcs

#endif
