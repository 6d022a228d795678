// Brings the components that a cRemoteComponentServer exports into this
// process: once connected and authenticated, each remote component appears
// in the module manager as a proxy component (isLocal() false, location()
// the remote one), and dependencies match it like any local component.
// Calling a slot of a proxy's interface sends the call and waits for the
// result; a failed call throws cRMIException (an exception raised remotely
// is its cause, rebuilt from the prototypes that components registered, see
// cAbstractComponent::registerRemoteException).
//
//   qcs::cRemoteOptions options;
//   options.loadSecretFile("app.secret");
//   qcs::cRemoteComponentClient client(mgr, options);
//   client.connect("127.0.0.1:4711");                // returns at once
//   client.waitConnected(5000);                      // or react to sigConnected
//
// Waiting for a result runs nested passes of the system's work queue until
// the result arrives, the call times out (cRemoteOptions::callTimeout()) or
// the connection is lost: other works, and other remote calls, run
// meanwhile, so a caller must not rely on nothing else happening during a
// remote call. When the connection is lost the proxies are removed through
// the manager's normal removal (dependencies on them unmatch); connect()
// again and they come back.
#ifndef QELCORE_QCS_CREMOTECOMPONENTCLIENT_H
#define QELCORE_QCS_CREMOTECOMPONENTCLIENT_H

#include "qelcore/qelexport.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"

namespace qstd {
class cAsciiString;
}

namespace qcs {

class cModuleMgr;
class cRemoteOptions;
class cRemoteComponentClientImpl;

/// Connects to a component server and adds proxies of its components (see
/// the file comment).
class QEL_EXPORT cRemoteComponentClient {
public:
  /// A client that adds proxies to `mgr` (which must outlive it); the
  /// options are copied and must hold a secret (a bug exception otherwise).
  cRemoteComponentClient(cModuleMgr& mgr, const cRemoteOptions& options);
  cRemoteComponentClient(const cRemoteComponentClient&) = delete;
  cRemoteComponentClient& operator=(const cRemoteComponentClient&) = delete;
  /// Drops the connection; the proxies leave with the manager's next pass.
  ~cRemoteComponentClient();

  /// Emitted when the server has been authenticated (its components follow).
  qrmi::localSignal0<qsa::piVoid> sigConnected;
  /// Emitted when an established or starting connection is over.
  qrmi::localSignal0<qsa::piVoid> sigDisconnected;

  /// Connects to "a.b.c.d:port", "[v6]:port" or "localhost:port"; an open
  /// connection is dropped first. Returns at once; runtime exception for a
  /// malformed address.
  void connect(const qstd::cAsciiString& address);
  /// Runs nested passes of the system's work queue until the connection is
  /// established (true), fails or `milliseconds` have passed (false).
  bool waitConnected(unsigned int milliseconds);
  /// Whether the server has been authenticated and the connection is open.
  bool isConnected() const;
  /// Why the last connection ended (empty while none ended).
  const qstd::cAsciiString& lastError() const;
  /// Drops the connection.
  void close();

private:
  cRemoteComponentClientImpl* mpImpl;
};

}  // namespace qcs

#endif
