#include "qelcore/qce/net++/cnetabstractclient.h"

#include "qelcore/pi/cabstractsocketimpl.h"
#include "qelcore/std/casciistring.h"

namespace qce {

class cNetAbstractClient::cClientConnection : public cNetAbstractConnection {
public:
  explicit cClientConnection(qpi::cWorkQueue* queue) : cNetAbstractConnection(queue) {}
};

cNetAbstractClient::cNetAbstractClient(qpi::cWorkQueue* queue) : mpConnection(new cClientConnection(queue)) {}
cNetAbstractClient::~cNetAbstractClient() { delete mpConnection; }
void cNetAbstractClient::connectTo(const cNetAbstractAddress&) {}
void cNetAbstractClient::connectTo(const qstd::cAsciiString&) {}
void cNetAbstractClient::connectTo(const char*) {}
cNetAbstractConnection& cNetAbstractClient::connection() { return *mpConnection; }
const cNetAbstractConnection& cNetAbstractClient::connection() const { return *mpConnection; }
bool cNetAbstractClient::isConnected() const { return mpConnection->isConnected(); }
void cNetAbstractClient::close() { mpConnection->close(); }
qstd::tAutoPtr<qpi::cAbstractSocketImpl> cNetAbstractClient::createSocketImpl() const {
  return qstd::tAutoPtr<qpi::cAbstractSocketImpl>();
}

}  // namespace qce
