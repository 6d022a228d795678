#include "qelcore/qce/net++/cnetabstractclient.h"

#include "qelcore/pi/cabstractsocketimpl.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/qce/detail/netsockaddr.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/std/casciistring.h"

namespace qce {

// The connection a client holds: constructible here.
class cNetAbstractClient::cClientConnection : public cNetAbstractConnection {
public:
  explicit cClientConnection(qpi::cWorkQueue* queue) : cNetAbstractConnection(queue) {}
};

cNetAbstractClient::cNetAbstractClient(qpi::cWorkQueue* queue) : mpConnection(new cClientConnection(queue)) {}

cNetAbstractClient::~cNetAbstractClient() { delete mpConnection; }

void cNetAbstractClient::connectTo(const cNetAbstractAddress& address) {
  char sockAddr[qpi::cAbstractSocketImpl::MaxSockAddrSize];
  const unsigned int size = detail::toSockAddr(address, true, sockAddr, sizeof sockAddr);
  mpConnection->open(createSocketImpl(), sockAddr, size);
}

void cNetAbstractClient::connectTo(const qstd::cAsciiString& address) {
  connectTo(*detail::addressFromString(address));
}

void cNetAbstractClient::connectTo(const char* address) { connectTo(qstd::cAsciiString(address)); }

cNetAbstractConnection& cNetAbstractClient::connection() { return *mpConnection; }

const cNetAbstractConnection& cNetAbstractClient::connection() const { return *mpConnection; }

bool cNetAbstractClient::isConnected() const { return mpConnection->isConnected(); }

void cNetAbstractClient::close() { mpConnection->close(); }

qstd::tAutoPtr<qpi::cAbstractSocketImpl> cNetAbstractClient::createSocketImpl() const {
  return qpi::cPlatform::createSocketImpl();
}

}  // namespace qce
