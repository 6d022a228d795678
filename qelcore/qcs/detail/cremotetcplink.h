// A remote session over a TCP connection: the connection's data goes into
// the session, the session's frames into the connection, and the end of
// either ends the other.
#ifndef QELCORE_QCS_DETAIL_CREMOTETCPLINK_H
#define QELCORE_QCS_DETAIL_CREMOTETCPLINK_H

#include <functional>
#include <memory>

#include "qelcore/qce/net++/cnetabstractconnection.h"
#include "qelcore/qcs/detail/cremotesession.h"
#include "qelcore/rmi/cconnectable.h"

namespace qcs {
namespace detail {

class cRemoteTcpLink : public qrmi::cConnectable, public cRemoteSink {
public:
  /// Runs a session of `role` over `connection` (not owned; it must outlive
  /// the link or the link must go first).
  cRemoteTcpLink(cRemoteSession::Role role, cModuleMgr& mgr, const cRemoteOptions& options,
                 qce::cNetAbstractConnection& connection);
  ~cRemoteTcpLink() override;

  cRemoteSession& session() { return mSession; }
  /// Stops listening to the connection (which may carry another session
  /// later) and closes the session without telling the connection.
  void detach();
  bool closed() const { return mbClosed; }
  /// Whether the session is handling received bytes (further up the stack):
  /// the link must not be destroyed then.
  bool busy() const { return miFeeding != 0; }

  /// Called when the peer was authenticated, and when the connection ended.
  std::function<void()> mOnEstablished;
  std::function<void()> mOnClosed;

  void send(const char* data, unsigned int size) override;
  void close() override;
  void established() override;
  std::size_t backlog() const override;

private:
  qsa::piVoid sltConnected(qce::cNetAbstractConnection& c);
  qsa::piVoid sltData(qce::cNetAbstractConnection& c);
  qsa::piVoid sltClosed(qce::cNetAbstractConnection& c);

  qce::cNetAbstractConnection& mConnection;
  cRemoteSession mSession;
  bool mbClosed;
  unsigned int miFeeding;
};

}  // namespace detail
}  // namespace qcs

#endif
