#include "qelcore/qce/net++/cnetabstractconnection.h"

#include "qelcore/pi/cabstractsocketimpl.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/std/tarray.h"

namespace qce {

cNetAbstractConnection::cNetAbstractConnection(qpi::cWorkQueue* queue)
    : cNetAbstractSocket(queue), meState(Closed), mbClosing(false), miReceiveLimit(4u << 20), mpBuffers(nullptr) {}
cNetAbstractConnection::~cNetAbstractConnection() {}
cNetAbstractConnection::State cNetAbstractConnection::state() const { return meState; }
bool cNetAbstractConnection::isConnected() const { return meState == Connected; }
const char* cNetAbstractConnection::receivedData() const { return nullptr; }
std::size_t cNetAbstractConnection::receivedSize() const { return 0; }
void cNetAbstractConnection::consume(std::size_t) {}
std::size_t cNetAbstractConnection::read(char*, std::size_t) { return 0; }
void cNetAbstractConnection::setReceiveLimit(std::size_t bytes) { miReceiveLimit = bytes; }
std::size_t cNetAbstractConnection::receiveLimit() const { return miReceiveLimit; }
void cNetAbstractConnection::send(const char*, std::size_t) {}
void cNetAbstractConnection::send(const tByteArray&) {}
std::size_t cNetAbstractConnection::pendingSendBytes() const { return 0; }
void cNetAbstractConnection::close() {}
qstd::tAutoPtr<cNetAbstractAddress> cNetAbstractConnection::peerAddress() const {
  return qstd::tAutoPtr<cNetAbstractAddress>();
}
std::size_t cNetAbstractConnection::bufferCapacity() const { return 0; }
void cNetAbstractConnection::ready(unsigned int) {}

}  // namespace qce
