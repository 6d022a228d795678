#include "qelcore/qcs/detail/cremotetcplink.h"

#include <vector>

namespace qcs {
namespace detail {

cRemoteTcpLink::cRemoteTcpLink(cRemoteSession::Role role, cModuleMgr& mgr, const cRemoteOptions& options,
                               qce::cNetAbstractConnection& connection)
    : mConnection(connection), mSession(role, mgr, options, *this), mbClosed(false), miFeeding(0) {
  connection.sigConnected.connect(*this, &cRemoteTcpLink::sltConnected);
  connection.sigData.connect(*this, &cRemoteTcpLink::sltData);
  connection.sigClosed.connect(*this, &cRemoteTcpLink::sltClosed);
  if (connection.isConnected()) mSession.start();
}

cRemoteTcpLink::~cRemoteTcpLink() {}

void cRemoteTcpLink::detach() {
  mConnection.sigConnected.disconnect(*this);
  mConnection.sigData.disconnect(*this);
  mConnection.sigClosed.disconnect(*this);
  mbClosed = true;
  mSession.connectionLost();
}

void cRemoteTcpLink::send(const char* data, unsigned int size) {
  if (!mbClosed && mConnection.state() != qce::cNetAbstractConnection::Closed) mConnection.send(data, size);
}

void cRemoteTcpLink::close() {
  if (mbClosed) return;
  mConnection.close();
}

std::size_t cRemoteTcpLink::backlog() const { return mConnection.pendingSendBytes(); }

void cRemoteTcpLink::established() {
  if (mOnEstablished) mOnEstablished();
}

qsa::piVoid cRemoteTcpLink::sltConnected(qce::cNetAbstractConnection&) {
  mSession.start();
  return qsa::piVoid();
}

qsa::piVoid cRemoteTcpLink::sltData(qce::cNetAbstractConnection& c) {
  // Taken out of the connection first: a frame's handling may wait in a
  // nested pass, in which the connection offers what is left again.
  const std::size_t n = c.receivedSize();
  std::vector<char> bytes(c.receivedData(), c.receivedData() + n);
  c.consume(n);
  ++miFeeding;
  mSession.feed(bytes.data(), bytes.size());
  --miFeeding;
  return qsa::piVoid();
}

qsa::piVoid cRemoteTcpLink::sltClosed(qce::cNetAbstractConnection&) {
  if (mbClosed) return qsa::piVoid();
  mbClosed = true;
  mSession.connectionLost();
  if (mOnClosed) mOnClosed();
  return qsa::piVoid();
}

}  // namespace detail
}  // namespace qcs
