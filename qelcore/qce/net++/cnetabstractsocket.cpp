#include "qelcore/qce/net++/cnetabstractsocket.h"

#include "qelcore/pi/cabstractsocketimpl.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/std/casciistring.h"

namespace qce {

class cNetAbstractSocket::cPrivate {};

cNetAbstractSocket::cNetAbstractSocket(qpi::cWorkQueue*) : mpPrivate(nullptr) {}
cNetAbstractSocket::~cNetAbstractSocket() {}
bool cNetAbstractSocket::isOpen() const { return false; }
qstd::tAutoPtr<cNetAbstractAddress> cNetAbstractSocket::localAddress() const {
  return qstd::tAutoPtr<cNetAbstractAddress>();
}
void cNetAbstractSocket::prepareQueue(qpi::cWorkQueue&) {}
qstd::tAutoPtr<cNetAbstractAddress> cNetAbstractSocket::addressFromString(const qstd::cAsciiString&) {
  return qstd::tAutoPtr<cNetAbstractAddress>();
}
qstd::tAutoPtr<qpi::cAbstractSocketImpl> cNetAbstractSocket::createSocketImpl() const {
  return qstd::tAutoPtr<qpi::cAbstractSocketImpl>();
}
void cNetAbstractSocket::attach(qstd::tAutoPtr<qpi::cAbstractSocketImpl>, unsigned int) {}
void cNetAbstractSocket::detach() {}
qpi::cAbstractSocketImpl* cNetAbstractSocket::impl() const { return nullptr; }
void cNetAbstractSocket::watch(unsigned int) {}
unsigned int cNetAbstractSocket::watched() const { return 0; }
qpi::detail::cLifeLink*& cNetAbstractSocket::lifeLinks() {
  static qpi::detail::cLifeLink* none = nullptr;
  return none;
}
qsa::piVoid cNetAbstractSocket::sltReady() { return qsa::piVoid(); }

}  // namespace qce
